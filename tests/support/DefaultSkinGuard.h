// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/GuiSkin.h"

namespace Nolvex::Tests {

/// Gives the default skin back as it was found.
struct DefaultSkinGuard
{
    Wx::GuiSkin before = Wx::GuiSkin::DEFAULT();

    ~DefaultSkinGuard() { Wx::GuiSkin::DEFAULT() = before; }
};

} // namespace Nolvex::Tests
