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
    /// Makes light of the values before the curve of sRGB. Has no effect without that curve.
    float lightExponent = 1.0f;

    float at(float value) const;

    /// Encodes the colours. Alpha is no light and stays as it is.
    Rgb at(const Rgb& pixel) const;

    /// Returns the value, from 0 to 1, that the curve turns into a value of the screen from 0 to 1.
    float before(float encoded) const;
};

} // namespace Nolvex::Viewer
