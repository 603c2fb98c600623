// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/GuiSkin.h"

namespace Nolvex::Tests {

/// Restores the default skin at the end of a test.
struct DefaultSkinGuard
{
    Wx::GuiSkin before = Wx::GuiSkin::DEFAULT();

    ~DefaultSkinGuard() { Wx::GuiSkin::DEFAULT() = before; }
};

} // namespace Nolvex::Tests
