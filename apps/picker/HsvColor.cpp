// SPDX-License-Identifier: MIT
#include "apps/picker/HsvColor.h"

#include <algorithm>
#include <cmath>

namespace Nolvex::Picker {

namespace {

constexpr float FULL_CIRCLE = 360.0f;
constexpr float SIXTH = 60.0f;

float light(float channel)
{
    return std::isfinite(channel) ? std::max(channel, 0.0f) : 0.0f;
}

float hueWithin(float hue)
{
    if (!std::isfinite(hue))
        return 0.0f;
    const float rest = std::fmod(hue, FULL_CIRCLE);
    return rest < 0.0f ? rest + FULL_CIRCLE : rest;
}

// `range` is the difference between the largest and the smallest channel, and not 0.
float hueOf(float r, float g, float b, float range)
{
    const float largest = std::max({r, g, b});
    if (largest == r)
        return hueWithin(SIXTH * ((g - b) / range));
    if (largest == g)
        return SIXTH * (2.0f + (b - r) / range);
    return SIXTH * (4.0f + (r - g) / range);
}

} // namespace

HsvColor HsvColor::fromRgb(const Rgb& color)
{
    const float r = light(color.r);
    const float g = light(color.g);
    const float b = light(color.b);
    const float largest = std::max({r, g, b});
    const float range = largest - std::min({r, g, b});
    if (range <= 0.0f)
        return {0.0f, 0.0f, largest};
    return {hueOf(r, g, b, range), range / largest, largest};
}

Rgb HsvColor::toRgb(float alpha) const
{
    // Each channel is at `value` within 60 degrees of its own hue, and falls to the smallest channel within
    // the next 60 degrees.
    const auto channel = [this](float ownHue) {
        float distance = std::abs(hueWithin(hue) - ownHue);
        distance = std::min(distance, FULL_CIRCLE - distance);
        const float share = std::clamp(2.0f - distance / SIXTH, 0.0f, 1.0f);
        return value * (1.0f - saturation * (1.0f - share));
    };
    return {channel(0.0f), channel(2.0f * SIXTH), channel(4.0f * SIXTH), alpha};
}

} // namespace Nolvex::Picker
