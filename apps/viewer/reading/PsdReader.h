// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads the merged image of PSD and PSB files, in grey or RGB: 8 and 16 bits, encoded for the display, and
/// 32-bit floats of linear light. The layers that the image was made of are not read.
///
/// stb_image is not used for these files, because it reads compressed images of 16 bits wrongly and takes
/// every fourth channel for the transparency of the image.
class PsdReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
