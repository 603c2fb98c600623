// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads TIFF files of more than 8 bits for each channel: integers of 16 and 32 bits, floats of 16, 32 and 64
/// bits, in strips or tiles, with any orientation. Integers of 32 bits and floats of 64 bits become floats of
/// 32 bits. Floats are linear light. Colours that were multiplied by alpha are divided by alpha again.
class TiffReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
