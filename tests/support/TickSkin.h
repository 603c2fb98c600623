// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/GuiSkin.h"

namespace Nolvex::Tests {

constexpr RgbBytes TICK_OUTLINE{120, 10, 20};
constexpr RgbBytes TICK_FILL{30, 240, 50};

/// The skin of the panel whose tick is painted first in the process, and whose colours all ticks have from
/// then on: every test that shows a collapsible panel begins with this one.
inline Wx::GuiSkin tickSkin()
{
    Wx::GuiSkin skin;
    skin.text = {210, 220, 230};
    skin.darkBackground = TICK_OUTLINE;
    skin.accent = TICK_FILL;
    return skin;
}

} // namespace Nolvex::Tests
