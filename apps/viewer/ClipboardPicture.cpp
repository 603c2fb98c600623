// SPDX-License-Identifier: MIT
#include "apps/viewer/ClipboardPicture.h"

#include "NolvexLibWx/ColourConversions.h"

#include <wx/image.h>

namespace Nolvex::Viewer {

namespace {

constexpr float SCALE = 1.0f / 255.0f;

float mixed(unsigned char channel, unsigned char behind, float opacity)
{
    return (static_cast<float>(channel) * opacity + static_cast<float>(behind) * (1.0f - opacity)) * SCALE;
}

} // namespace

BitmapImpl<Rgb> clipboardPicture(const wxBitmap& bitmap, const wxColour& background)
{
    if (!bitmap.IsOk())
        return {};
    // An image and not the bitmap's own bytes: those are premultiplied on some systems.
    const wxImage image = bitmap.ConvertToImage();
    const RgbBytes behind = Wx::toRgbBytes(background);
    BitmapImpl<Rgb> picture(image.GetWidth(), image.GetHeight());
    for (int y = 0; y < picture.height(); ++y) {
        Rgb* to = picture.row(picture.height() - 1 - y);
        for (int x = 0; x < picture.width(); ++x) {
            const float opacity = image.HasAlpha() ? static_cast<float>(image.GetAlpha(x, y)) * SCALE : 1.0f;
            *to++ = {mixed(image.GetRed(x, y), behind.r, opacity),
                     mixed(image.GetGreen(x, y), behind.g, opacity),
                     mixed(image.GetBlue(x, y), behind.b, opacity), 1.0f};
        }
    }
    return picture;
}

} // namespace Nolvex::Viewer
