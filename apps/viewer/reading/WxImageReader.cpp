// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WxImageReader.h"

#include "NolvexLib/ImageFormatDescriptor.h"
#include "NolvexLibWx/MemoryImages.h"
#include "apps/viewer/reading/WxImagePixels.h"

#include <wx/image.h>

#include <utility>

namespace Nolvex::Viewer {

Array<String> WxImageReader::extensions() const
{
    Array<String> all;
    for (const ImageFormat format :
         {ImageFormat::JPEG, ImageFormat::BMP, ImageFormat::GIF, ImageFormat::TARGA, ImageFormat::ICO}) {
        for (const String& extension : getImageFormatDescriptor(format).extensions)
            all.push_back(extension);
    }
    return all;
}

// TGA files cannot be told by how they begin.
bool WxImageReader::knows(ArrayView<const std::byte> /*file*/) const
{
    return true;
}

Expected<ReadImage, String> WxImageReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                                const ReadingProgress& /*progress*/) const
{
    Expected<wxImage, String> decoded = Wx::decodeWholeImage(file);
    if (!decoded)
        return Unexpected{decoded.error()};
    if (decoded->HasMask() && !decoded->HasAlpha())
        decoded->InitAlpha();
    Expected<Image, String> image = toImage(*decoded);
    if (!image)
        return Unexpected{image.error()};
    return ReadImage{std::move(*image), {}};
}

} // namespace Nolvex::Viewer
