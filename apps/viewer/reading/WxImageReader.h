// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads with the decoders of wxWidgets, after the checks of the library: JPEG, BMP, GIF (its first frame),
/// TGA, ICO and TIFF of 8 bits. The images have 8 bits for each channel and are encoded for the display.
class WxImageReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    std::uint64_t maxFileBytes() const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
