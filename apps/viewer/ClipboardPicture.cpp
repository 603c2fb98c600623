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

Rgb clamped(const Rgb& pixel)
{
    return {clamped(pixel.r), clamped(pixel.g), clamped(pixel.b), 1.0f};
}

} // namespace

BitmapImpl<Rgb> clipboardPicture(const Picture& picture, const DisplaySettings& settings,
                                 const RgbBytes& background)
{
    const ImageDescriptor& descriptor = picture.image().descriptor();
    const Development development(descriptor, settings);
    const ScreenCurve& curve = development.curve();
    const Rgb encoded = Wx::toRgb(Wx::toWxColour(background));
    const Rgb behind{curve.before(encoded.r), curve.before(encoded.g), curve.before(encoded.b), 1.0f};
    BitmapImpl<Rgb> copy(descriptor.width, descriptor.height);
    for (std::int32_t y = 0; y < descriptor.height; ++y) {
        Rgb* const row = copy.row(y);
        picture.image().readRow(y, row);
        development.apply(row, static_cast<std::size_t>(descriptor.width));
        std::transform(row, row + descriptor.width, row, [&](const Rgb& pixel) {
            return clamped(
                curve.at(development.isTransparent() ? over(pixel, picture.alpha(), behind) : pixel));
        });
    }
    return copy;
}

Optional<String> copyToClipboard(const Picture& picture, const DisplaySettings& settings,
                                 const RgbBytes& background)
{
    try {
        if (Wx::setClipboardData(clipboardPicture(picture, settings, background), {}))
            return {};
    } catch (const std::bad_alloc&) {
        return String(L"The picture was not copied: there is not enough memory.");
    }
    return String(
        L"The picture was not copied: another program is using the clipboard, or the picture is too "
        L"large for it.");
}

} // namespace Nolvex::Viewer
