// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"
#include "apps/picker/HsvColor.h"

#include <array>

namespace Nolvex::Picker {

/// The numbers by which the user changes a colour.
enum class Channel : int
{
    RED,
    GREEN,
    BLUE,
    ALPHA,
    HUE,
    SATURATION,
    VALUE,
};

inline constexpr std::array CHANNELS{Channel::RED, Channel::GREEN,      Channel::BLUE, Channel::ALPHA,
                                     Channel::HUE, Channel::SATURATION, Channel::VALUE};

/// The colour that a picker shows. The colour is kept as red, green, blue and alpha, exactly as it was given.
/// Besides, the hue of a grey and the hue and saturation of black are remembered, since these colours have
/// none: a user who drags the value down to black and up again gets the colour back.
class PickedColor
{
public:
    explicit PickedColor(const Rgb& color);

    const Rgb& color() const { return m_color; }

    void setColor(const Rgb& color);

    float channel(Channel channel) const;

    /// Changes one number. Of red, green, blue and alpha the others stay exactly as they are; hue, saturation
    /// and value keep the alpha.
    void setChannel(Channel channel, float number);

    /// Returns the colour as it would be after `setChannel`.
    Rgb withChannel(Channel channel, float number) const;

private:
    Rgb m_color;
    HsvColor m_hsv;
};

} // namespace Nolvex::Picker
