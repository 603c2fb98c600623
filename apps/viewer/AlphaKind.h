// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"

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
Rgb over(const Rgb& pixel, AlphaKind kind, const Rgb& background);

} // namespace Nolvex::Viewer
