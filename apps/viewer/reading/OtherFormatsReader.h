// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads what no other reader knows by OpenImageIO, if the viewer was built with it: Cineon, DDS, DPX, FITS,
/// IFF, JPEG 2000, PIC and SGI files. OpenImageIO and the libraries that it needs take longer to load than
/// the whole viewer. They therefore belong to a module of their own, which is loaded for the first such file.
/// Without the module the reader knows no files.
class OtherFormatsReader : public PictureReader
{
public:
    Array<String> extensions() const override;
    bool knows(ArrayView<const std::byte> file) const override;
    bool mayKnow(ArrayView<const std::byte> beginning) const override;
    Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                     const ReadingProgress& progress) const override;
};

} // namespace Nolvex::Viewer
