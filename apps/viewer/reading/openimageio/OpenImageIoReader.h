// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads the files of OTHER_FORMATS by OpenImageIO. Integers of 8 and 16 bits, halves and floats keep their
/// values; all other numbers become floats.
class OpenImageIoReader : public PictureReader
{
public:
    Array<String> extensions() const override { return {}; }

    bool knows(ArrayView<const std::byte> file) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
