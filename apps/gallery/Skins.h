// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/GuiSkin.h"

#include <array>

namespace Nolvex::Gallery {

struct NamedSkin
{
    const wchar_t* name;
    Wx::GuiSkin skin;
};

/// The number of skins that the gallery brings along.
inline constexpr int SKIN_COUNT = 2;

/// The skins that the gallery brings along. The first is the default skin at the time of the first call,
/// which must therefore come before the gallery changes the default skin.
const std::array<NamedSkin, SKIN_COUNT>& builtInSkins();

} // namespace Nolvex::Gallery
