// SPDX-License-Identifier: MIT
#include "apps/picker/PickedColor.h"

namespace Nolvex::Picker {

namespace {

// Returns the number of the colour, or null for hue, saturation and value.
float* numberOf(Rgb& color, Channel channel)
{
    switch (channel) {
    case Channel::RED:
        return &color.r;
    case Channel::GREEN:
        return &color.g;
    case Channel::BLUE:
        return &color.b;
    case Channel::ALPHA:
        return &color.a;
    default:
        return nullptr;
    }
}

float& numberOf(HsvColor& color, Channel channel)
{
    switch (channel) {
    case Channel::HUE:
        return color.hue;
    case Channel::SATURATION:
        return color.saturation;
    default:
        return color.value;
    }
}

} // namespace

PickedColor::PickedColor(const Rgb& color) : m_color(color), m_hsv(HsvColor::fromRgb(color)) {}

void PickedColor::setColor(const Rgb& color)
{
    m_color = color;
    const HsvColor hsv = HsvColor::fromRgb(color);
    m_hsv.value = hsv.value;
    if (hsv.value > 0.0f)
        m_hsv.saturation = hsv.saturation;
    if (hsv.saturation > 0.0f)
        m_hsv.hue = hsv.hue;
}

float PickedColor::channel(Channel channel) const
{
    Rgb color = m_color;
    if (const float* const number = numberOf(color, channel))
        return *number;
    HsvColor hsv = m_hsv;
    return numberOf(hsv, channel);
}

void PickedColor::setChannel(Channel channel, float number)
{
    if (float* const own = numberOf(m_color, channel)) {
        *own = number;
        setColor(m_color);
    } else {
        numberOf(m_hsv, channel) = number;
        m_color = m_hsv.toRgb(m_color.a);
    }
}

Rgb PickedColor::withChannel(Channel channel, float number) const
{
    PickedColor changed = *this;
    changed.setChannel(channel, number);
    return changed.color();
}

} // namespace Nolvex::Picker
