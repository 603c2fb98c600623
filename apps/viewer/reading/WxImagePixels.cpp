// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WxImagePixels.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/PictureReader.h"

#include <wx/image.h>

namespace Nolvex::Viewer {

Expected<Image, String> toImage(const wxImage& source)
{
    const bool alpha = source.HasAlpha();
    Expected<Image, String> image =
        blankImage(source.GetWidth(), source.GetHeight(),
                   alpha ? PixelFormat::UINT8_RGBA : PixelFormat::UINT8_RGB, GAMMA_OF_ENCODED);
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

} // namespace Nolvex::Viewer
