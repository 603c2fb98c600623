// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads EXR files of scan lines or tiles, with one or several parts, by OpenEXR and on all cores. The
/// channels of a part whose names begin with the same prefix make a layer if they are colours; every other
/// channel is a layer in grey. The images are linear light, in halves if all channels of the layer are halves
/// and in floats otherwise.
class OpenExrReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    Expected<Array<PictureLayer>, String> layers(ArrayView<const std::byte> file) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
