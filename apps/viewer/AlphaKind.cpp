// SPDX-License-Identifier: MIT
#include "apps/viewer/AlphaKind.h"

#include <algorithm>
#include <cmath>

namespace Nolvex::Viewer {

Rgb multipliedByAlpha(const Rgb& pixel)
{
    if (std::isnan(pixel.a))
        return pixel;
    if (pixel.a == 0.0f)
        return {0.0f, 0.0f, 0.0f, 0.0f};
    return {pixel.r * pixel.a, pixel.g * pixel.a, pixel.b * pixel.a, pixel.a};
}

Rgb dividedByAlpha(const Rgb& pixel)
{
    if (!(pixel.a > 0.0f) || pixel.a == 1.0f)
        return pixel;
    return {pixel.r / pixel.a, pixel.g / pixel.a, pixel.b / pixel.a, pixel.a};
}

Rgb over(const Rgb& pixel, AlphaKind kind, const Rgb& background)
{
    const float opacity = pixel.a > 0.0f ? std::min(pixel.a, 1.0f) : 0.0f;
    const float rest = 1.0f - opacity;
    const Rgb behind{background.r * rest, background.g * rest, background.b * rest, 1.0f};
    if (kind == AlphaKind::ASSOCIATED)
        return {pixel.r + behind.r, pixel.g + behind.g, pixel.b + behind.b, 1.0f};
    if (opacity == 0.0f)
        return behind; // an infinite colour times 0 would be NaN
    return {pixel.r * opacity + behind.r, pixel.g * opacity + behind.g, pixel.b * opacity + behind.b, 1.0f};
}

} // namespace Nolvex::Viewer
