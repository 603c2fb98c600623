// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/GuiSkin.h"

#include <array>

namespace Nolvex::Gallery {

/// A colour of a skin, by its name.
struct SkinField
{
    const wchar_t* name;
    RgbBytes Wx::GuiSkin::*color;
};

/// All colours of a skin in their order.
inline constexpr std::array<SkinField, 9> SKIN_FIELDS{{
    {L"text", &Wx::GuiSkin::text},
    {L"disabledText", &Wx::GuiSkin::disabledText},
    {L"background", &Wx::GuiSkin::background},
    {L"darkBackground", &Wx::GuiSkin::darkBackground},
    {L"accentText", &Wx::GuiSkin::accentText},
    {L"accent", &Wx::GuiSkin::accent},
    {L"pressedBackground", &Wx::GuiSkin::pressedBackground},
    {L"link", &Wx::GuiSkin::link},
    {L"highlight", &Wx::GuiSkin::highlight},
}};

static_assert(sizeof(Wx::GuiSkin) == SKIN_FIELDS.size() * sizeof(RgbBytes));

} // namespace Nolvex::Gallery
