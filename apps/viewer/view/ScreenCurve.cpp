// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ScreenCurve.h"

#include "apps/viewer/Light.h"

#include <cmath>

namespace Nolvex::Viewer {

namespace {

constexpr float LINE_END = 0.0031308f;
constexpr float SLOPE = 12.92f;

// The curve of IEC 61966-2-1 for a positive value, and the curve back.
float srgb(float light)
{
    return light <= LINE_END ? SLOPE * light : 1.055f * std::pow(light, 1.0f / 2.4f) - 0.055f;
}

float lightOfSrgb(float encoded)
{
    return encoded <= SLOPE * LINE_END ? encoded / SLOPE : std::pow((encoded + 0.055f) / 1.055f, 2.4f);
}

} // namespace

float ScreenCurve::at(float value) const
{
    const float size = std::abs(value);
    const float encoded = isSrgb ? srgb(signedPower(size, lightExponent)) : size;
    return std::copysign(signedPower(encoded, exponent), value);
}

Rgb ScreenCurve::at(const Rgb& pixel) const
{
    return {at(pixel.r), at(pixel.g), at(pixel.b), pixel.a};
}

float ScreenCurve::before(float encoded) const
{
    const float value = signedPower(encoded, 1.0f / exponent);
    return isSrgb ? signedPower(lightOfSrgb(value), 1.0f / lightExponent) : value;
}

} // namespace Nolvex::Viewer
