// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <type_traits>

namespace Nolvex {

namespace {

// Constant initialisation lets hosts read the default skin in their static constructors.
constinit Wx::GuiSkin g_default{
    .text = {200, 200, 200},
    .disabledText = {110, 110, 110},
    .background = {68, 68, 68},
    .darkBackground = {37, 37, 37},
    .accentText = {0, 0, 0},
    .accent = {95, 138, 193},
    .pressedBackground = {0, 73, 112},
    .link = {81, 167, 241},
    .highlight = {0, 114, 188},
};

static_assert(std::is_aggregate_v<Wx::GuiSkin> && std::is_trivially_copyable_v<Wx::GuiSkin>);
static_assert(sizeof(Wx::GuiSkin) == 9 * sizeof(RgbBytes));

} // namespace

Wx::GuiSkin& Wx::GuiSkin::DEFAULT()
{
    return g_default;
}

} // namespace Nolvex
