// SPDX-License-Identifier: MIT
#include "apps/program/SystemParts.h"

#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/program/platform/DarkParts.h"

namespace Nolvex {

namespace {

/// The brightness as the eye weighs the channels, from 0 to 255,000.
int brightness(const RgbBytes& colour)
{
    return 299 * colour.r + 587 * colour.g + 114 * colour.b;
}

bool isDark(const Wx::GuiSkin& skin)
{
    return brightness(skin.background) < brightness(skin.text);
}

} // namespace

void Program::matchSystemParts(const Wx::GuiSkin& skin)
{
    static bool asked = false;
    const bool dark = isDark(skin) && !hasHighContrast();
    if (dark == asked)
        return; // A change makes GTK load the theme anew.
    asked = dark;
    requestDarkParts(dark);
}

} // namespace Nolvex
