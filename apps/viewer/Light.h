// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Viewer {

/// The gamma of images that hold linear light, and of those that are encoded for the display. The value v of
/// an image is shown as v to the power of 1 / gamma.
inline constexpr float GAMMA_OF_LIGHT = 2.2f;
inline constexpr float GAMMA_OF_ENCODED = 1.0f;

/// Returns the power with an exponent of the value's magnitude, with the sign of the value.
float signedPower(float value, float exponent);

/// Returns the exponent that makes linear light of the values of an image with this gamma: a display makes
/// light of what it is shown by the exponent 2.2.
constexpr float lightExponent(float gamma)
{
    return GAMMA_OF_LIGHT / gamma;
}

} // namespace Nolvex::Viewer
