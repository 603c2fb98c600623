// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/GuiSkin.h"

namespace Nolvex::Tests {

constexpr RgbBytes TICK_OUTLINE{120, 10, 20};
constexpr RgbBytes TICK_FILL{30, 240, 50};

/// The tick that is painted first in the process fixes the colours of all ticks. Every test that shows a
/// collapsible panel therefore begins with this skin.
inline Wx::GuiSkin tickSkin()
{
    Wx::GuiSkin skin;
    skin.text = {210, 220, 230};
    skin.darkBackground = TICK_OUTLINE;
    skin.accent = TICK_FILL;
    return skin;
}

} // namespace Nolvex::Tests
