// SPDX-License-Identifier: MIT
// Fuzzes the viewer's readers of PNG and TIFF files. The decoders themselves are not instrumented.
#include "Fuzz.h"

#include "apps/viewer/reading/PngReader.h"
#include "apps/viewer/reading/TiffReader.h"

using Nolvex::Fuzz::require;

namespace {

void readBy(const Nolvex::Viewer::PictureReader& reader, Nolvex::ArrayView<const std::byte> file)
{
    if (!reader.knows(file))
        return;
    const auto read = reader.read(file, 0, {});
    // An error is the rest of a sentence, or a sentence of the image library.
    require(read.hasValue() || !read.error().isEmpty());
    if (read)
        require(read->image.descriptor().width > 0 && read->image.descriptor().height > 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Nolvex::ArrayView<const std::byte> file(reinterpret_cast<const std::byte*>(data), size);
    readBy(Nolvex::Viewer::PngReader(), file);
    readBy(Nolvex::Viewer::TiffReader(), file);
    return 0;
}
