// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"

namespace Nolvex::Picker {

/// A colour as people describe colours.
struct HsvColor
{
    float hue = 0.0f;        ///< in degrees, from 0 (red) up to 360
    float saturation = 0.0f; ///< from 0 (grey) to 1
    float value = 0.0f;      ///< the largest of red, green and blue; above 1 for light brighter than white

    friend constexpr bool operator==(const HsvColor&, const HsvColor&) = default;

    /// A grey has the hue 0, and black has the saturation 0, too. Channels that are negative or not finite
    /// count as 0.
    static HsvColor fromRgb(const Rgb& color);

    /// Returns the colour with this alpha. A hue beyond 360 degrees goes round; a hue that is not finite
    /// counts as 0.
    Rgb toRgb(float alpha) const;
};

} // namespace Nolvex::Picker
