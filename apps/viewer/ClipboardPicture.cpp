// SPDX-License-Identifier: MIT
#include "apps/viewer/ClipboardPicture.h"

#include "NolvexLibWx/Clipboard.h"
#include "NolvexLibWx/ColourConversions.h"
#include "apps/viewer/view/Development.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace Nolvex::Viewer {

namespace {

// Returns the value limited to the range from 0 to 1, and 0 for NaN.
float clamped(float value)
{
    return value > 0.0f ? std::min(1.0f, value) : 0.0f;
}

float mixed(float channel, float behind, float opacity)
{
    return clamped(channel) * opacity + behind * (1.0f - opacity);
}

Rgb over(const Rgb& pixel, const Rgb& background)
{
    const float opacity = clamped(pixel.a);
    return {mixed(pixel.r, background.r, opacity), mixed(pixel.g, background.g, opacity),
            mixed(pixel.b, background.b, opacity), 1.0f};
}

} // namespace

BitmapImpl<Rgb> clipboardPicture(const Image& image, const DisplaySettings& settings,
                                 const RgbBytes& background)
{
    const ImageDescriptor& descriptor = image.descriptor();
    const Development development(descriptor, settings);
    const Rgb behind = Wx::toRgb(Wx::toWxColour(background));
    BitmapImpl<Rgb> picture(descriptor.width, descriptor.height);
    for (std::int32_t y = 0; y < descriptor.height; ++y) {
        Rgb* const row = picture.row(y);
        image.readRow(y, row);
        development.apply(row, static_cast<std::size_t>(descriptor.width));
        std::transform(row, row + descriptor.width, row,
                       [&](const Rgb& pixel) { return over(development.curve().at(pixel), behind); });
    }
    return picture;
}

Optional<String> copyToClipboard(const Image& image, const DisplaySettings& settings,
                                 const RgbBytes& background)
{
    try {
        if (Wx::setClipboardData(clipboardPicture(image, settings, background), {}))
            return {};
    } catch (const std::bad_alloc&) {
        return String(L"The picture was not copied: there is not enough memory.");
    }
    return String(
        L"The picture was not copied: another program is using the clipboard, or the picture is too "
        L"large for it.");
}

} // namespace Nolvex::Viewer
