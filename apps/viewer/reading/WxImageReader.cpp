// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WxImageReader.h"

#include "NolvexLib/ImageFormatDescriptor.h"
#include "NolvexLibWx/MemoryImages.h"

#include <wx/image.h>

#include <utility>

namespace Nolvex::Viewer {

namespace {

Expected<Image, String> toImage(const wxImage& source)
{
    const bool alpha = source.HasAlpha();
    Expected<Image, String> image =
        Image::create(source.GetWidth(), source.GetHeight(),
                      alpha ? PixelFormat::UINT8_RGBA : PixelFormat::UINT8_RGB, DISPLAY_GAMMA);
    const unsigned char* colour = source.GetData();
    const unsigned char* opacity = source.GetAlpha();
    for (std::int32_t y = source.GetHeight() - 1; image && y >= 0; --y) {
        auto to = image->row(y).begin();
        for (int x = 0; x < source.GetWidth(); ++x) {
            for (int channel = 0; channel < 3; ++channel)
                *to++ = static_cast<std::byte>(*colour++);
            if (alpha)
                *to++ = static_cast<std::byte>(*opacity++);
        }
    }
    return image;
}

} // namespace

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
