// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PictureReaders.h"

#include "apps/viewer/reading/OpenExrReader.h"
#include "apps/viewer/reading/OtherFormatsReader.h"
#include "apps/viewer/reading/PngReader.h"
#include "apps/viewer/reading/PortableAnyMapReader.h"
#include "apps/viewer/reading/PortableFloatMapReader.h"
#include "apps/viewer/reading/PsdReader.h"
#include "apps/viewer/reading/RadianceReader.h"
#include "apps/viewer/reading/TiffReader.h"
#include "apps/viewer/reading/WebPReader.h"
#include "apps/viewer/reading/WxImageReader.h"

#include <algorithm>
#include <array>

namespace Nolvex::Viewer {

namespace {

// The order counts: the first reader that knows a file reads it.
const auto& readers()
{
    static const OpenExrReader OPEN_EXR;
    static const PngReader PNG;
    static const TiffReader TIFF;
    static const RadianceReader RADIANCE;
    static const PortableFloatMapReader PORTABLE_FLOAT_MAP;
    static const PortableAnyMapReader PORTABLE_ANY_MAP;
    static const PsdReader PSD;
    static const WebPReader WEBP;
    static const OtherFormatsReader OTHER_FORMATS;
    static const WxImageReader ALL_OTHERS;
    static const std::array<const PictureReader*, 10> READERS{
        &OPEN_EXR,         &PNG, &TIFF, &RADIANCE,      &PORTABLE_FLOAT_MAP,
        &PORTABLE_ANY_MAP, &PSD, &WEBP, &OTHER_FORMATS, &ALL_OTHERS};
    return READERS;
}

} // namespace

const PictureReader& readerFor(ArrayView<const std::byte> file)
{
    const auto found = std::find_if(readers().begin(), readers().end(),
                                    [file](const PictureReader* reader) { return reader->knows(file); });
    return found == readers().end() ? *readers().back() : **found;
}

std::uint64_t maxFileBytesOf(ArrayView<const std::byte> beginning)
{
    std::uint64_t most = 0;
    // The last reader takes what no other reader knows.
    for (const PictureReader* reader : readers()) {
        if (reader->mayKnow(beginning))
            most = std::max(most, reader->maxFileBytes());
    }
    return most;
}

Array<String> readableExtensions()
{
    Array<String> all;
    for (const PictureReader* reader : readers()) {
        for (const String& extension : reader->extensions()) {
            if (std::find(all.begin(), all.end(), extension) == all.end())
                all.push_back(extension);
        }
    }
    return all;
}

} // namespace Nolvex::Viewer
