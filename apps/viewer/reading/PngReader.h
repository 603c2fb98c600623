// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads PNG files of all kinds, in the depth of the file: 8 or 16 bits for each channel. Palettes become
/// colours. A gamma that the file tells is kept.
class PngReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
