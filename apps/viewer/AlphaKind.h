// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"

#include <algorithm>

namespace Nolvex::Viewer {

/// What the colours of a picture with alpha stand for. Pictures without alpha are the same in both kinds.
enum class AlphaKind
{
    STRAIGHT,   ///< the colours are those of the thing itself, however much of the background it covers
    ASSOCIATED, ///< the colours are multiplied by alpha, and are added to the background that alpha leaves
};

/// Multiplies the colours by alpha. A pixel whose alpha is 0 becomes black, even if its colours are infinite,
/// and a pixel whose alpha is NaN stays as it is.
Rgb multipliedByAlpha(const Rgb& pixel);

/// Divides the colours by alpha. Where alpha is not above 0, the colours stay as they are: such a pixel adds
/// light to the background, which no straight colours can express.
Rgb dividedByAlpha(const Rgb& pixel);

/// Returns the pixel in front of an opaque background. Alpha is limited to the range from 0 to 1, and NaN
/// counts as 0; colours are not limited.
inline Rgb over(const Rgb& pixel, AlphaKind kind, const Rgb& background)
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
