// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"
#include "apps/viewer/DisplaySettings.h"

namespace Nolvex::Viewer {

/// The colours of the false colour display, encoded for the screen. From the first to the last the lightness
/// grows evenly to the eye, while the hue turns from blue over red to yellow, so that equal steps of the
/// values look like equal steps, also in print and to colour-blind eyes.
class ColorMap
{
public:
    /// The range of the values is that of the settings. The map is not used if their false colour is off.
    explicit ColorMap(const DisplaySettings& settings);

    /// Returns the colour of a value. Values beyond the range have the colours of its ends, and NaN has
    /// nanColor().
    const Rgb& colorOf(float value) const;

    /// Returns the colour at a part of the way from the first colour to the last, from 0 to 1.
    static const Rgb& colorAt(float part);

    /// A green that is none of the other colours.
    static const Rgb& nanColor();

private:
    bool m_logarithmic;
    float m_from;
    float m_to;
};

} // namespace Nolvex::Viewer
