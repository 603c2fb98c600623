// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ColourConversions.h"

#include <cmath>

namespace Nolvex {

namespace {

std::uint8_t toByte(float channel)
{
    // Comparisons with NaN are false, so that NaN becomes 0.
    const float clamped = channel > 0.0f ? (channel < 1.0f ? channel : 1.0f) : 0.0f;
    return static_cast<std::uint8_t>(std::nearbyint(clamped * 255.0f));
}

} // namespace

Rgb Wx::toRgb(const wxColour& colour)
{
    constexpr float SCALE = 1.0f / 255.0f;
    const RgbBytes bytes = toRgbBytes(colour);
    return {static_cast<float>(bytes.r) * SCALE, static_cast<float>(bytes.g) * SCALE,
            static_cast<float>(bytes.b) * SCALE, 1.0f};
}

RgbBytes Wx::toRgbBytes(const wxColour& colour)
{
    return {colour.Red(), colour.Green(), colour.Blue()};
}

wxColour Wx::toWxColour(const RgbBytes& colour)
{
    return {colour.r, colour.g, colour.b, wxALPHA_OPAQUE};
}

wxColour Wx::toWxColour(const Rgb& colour)
{
    return {toByte(colour.r), toByte(colour.g), toByte(colour.b), wxALPHA_OPAQUE};
}

} // namespace Nolvex
