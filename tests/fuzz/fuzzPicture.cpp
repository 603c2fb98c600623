// SPDX-License-Identifier: MIT
// Fuzzes the viewer's own readers. Of the decoders, only stb_image is instrumented, whose source is compiled
// here.
#include "Fuzz.h"

#include "apps/viewer/reading/OpenExrReader.h"
#include "apps/viewer/reading/PngReader.h"
#include "apps/viewer/reading/PortableAnyMapReader.h"
#include "apps/viewer/reading/PortableFloatMapReader.h"
#include "apps/viewer/reading/PsdReader.h"
#include "apps/viewer/reading/RadianceReader.h"
#include "apps/viewer/reading/TiffReader.h"
#include "apps/viewer/reading/WebPReader.h"

#include <webp/decode.h>

#include <algorithm>

using Nolvex::Fuzz::require;

namespace {

// Larger images of one colour come from a few bytes, and take the fuzzer too long.
constexpr std::int64_t MAX_PIXELS = 4 * 1024 * 1024;

// WebP files say in their first bytes how large they are.
bool isQuick(const Nolvex::Viewer::PictureReader& reader, Nolvex::ArrayView<const std::byte> file)
{
    int width = 0;
    int height = 0;
    return dynamic_cast<const Nolvex::Viewer::WebPReader*>(&reader) == nullptr ||
           WebPGetInfo(reinterpret_cast<const std::uint8_t*>(file.data()), file.size(), &width, &height) ==
               0 ||
           std::int64_t(width) * height <= MAX_PIXELS;
}

void readBy(const Nolvex::Viewer::PictureReader& reader, Nolvex::ArrayView<const std::byte> file)
{
    if (!reader.knows(file) || !isQuick(reader, file))
        return;
    const auto layers = reader.layers(file);
    // An error is the rest of a sentence, or a sentence of the image library.
    require(layers.hasValue() || !layers.error().isEmpty());
    // One layer more than there are.
    for (std::size_t layer = 0; layers && layer <= std::min<std::size_t>(layers->size(), 4); ++layer) {
        const auto read = reader.read(file, layer, {});
        require(read.hasValue() || !read.error().isEmpty());
        if (read)
            require(read->image.descriptor().width > 0 && read->image.descriptor().height > 0);
        if (layers->size() == 1)
            break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Nolvex::ArrayView<const std::byte> file(reinterpret_cast<const std::byte*>(data), size);
    readBy(Nolvex::Viewer::OpenExrReader(), file);
    readBy(Nolvex::Viewer::PngReader(), file);
    readBy(Nolvex::Viewer::PortableAnyMapReader(), file);
    readBy(Nolvex::Viewer::PortableFloatMapReader(), file);
    readBy(Nolvex::Viewer::PsdReader(), file);
    readBy(Nolvex::Viewer::RadianceReader(), file);
    readBy(Nolvex::Viewer::TiffReader(), file);
    readBy(Nolvex::Viewer::WebPReader(), file);
    return 0;
}
