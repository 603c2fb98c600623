// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ScreenCurve.h"

#include <cmath>

namespace Nolvex::Viewer {

namespace {

// The curve of IEC 61966-2-1 for a positive value.
float srgb(float light)
{
    constexpr float LINE_END = 0.0031308f;
    return light <= LINE_END ? 12.92f * light : 1.055f * std::pow(light, 1.0f / 2.4f) - 0.055f;
}

} // namespace

float ScreenCurve::at(float value) const
{
    const float size = std::abs(value);
    const float encoded = isSrgb ? srgb(size) : size;
    return std::copysign(exponent == 1.0f ? encoded : std::pow(encoded, exponent), value);
}

Rgb ScreenCurve::at(const Rgb& pixel) const
{
    return {at(pixel.r), at(pixel.g), at(pixel.b), isSrgb ? pixel.a : at(pixel.a)};
}

} // namespace Nolvex::Viewer
