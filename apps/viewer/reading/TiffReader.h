// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads TIFF files with alpha or more than 8 bits for each channel: integers of 8, 16 and 32 bits, floats of
/// 16, 32 and 64 bits, in strips or tiles, with any orientation. Integers of 32 bits and floats of 64 bits
/// become floats of 32 bits. Floats are linear light. Alpha is straight or associated, as the file says.
class TiffReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    bool mayKnow(ArrayView<const std::byte> beginning) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
