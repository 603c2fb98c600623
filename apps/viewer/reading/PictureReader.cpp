// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

Expected<Array<PictureLayer>, String> PictureReader::layers(ArrayView<const std::byte> /*file*/) const
{
    return Array<PictureLayer>(1);
}

} // namespace Nolvex::Viewer
