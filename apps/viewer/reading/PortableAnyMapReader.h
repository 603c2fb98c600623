// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads the files of the netpbm programs: PBM, PGM and PPM, as text or binary. The images are encoded for
/// the display and have 16 bits for each channel if the largest value of the file is above 255, and 8 bits
/// otherwise. The largest value becomes white.
///
/// stb_image is not used for these files, because it takes neither the order of bytes nor the largest value
/// into account and leaves the pixels of files that are cut off unwritten.
class PortableAnyMapReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
