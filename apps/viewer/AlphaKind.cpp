// SPDX-License-Identifier: MIT
#include "apps/viewer/AlphaKind.h"

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

} // namespace Nolvex::Viewer
