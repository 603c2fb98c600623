// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"

namespace Nolvex::Viewer {

/// The curve that encodes values for the screen: first the curve of sRGB, if wanted, and then a power.
/// Negative values are encoded like positive ones and keep their sign.
struct ScreenCurve
{
    bool isSrgb = false;
    float exponent = 1.0f;

    float at(float value) const;

    /// Encodes the colours. The power without the curve of sRGB applies to alpha, too, as in the conversion
    /// of whole images to bitmaps.
    Rgb at(const Rgb& pixel) const;
};

} // namespace Nolvex::Viewer
