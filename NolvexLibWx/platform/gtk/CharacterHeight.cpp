// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CharacterHeight.h"

#include "NolvexLibWx/platform/gtk/ScreenResolution.h"

namespace Nolvex {

namespace {

constexpr double POINTS_PER_INCH = 72.0;

} // namespace

void Platform::setCharacterHeight(wxFont& font, int pixels)
{
    // On GTK wxFont::SetPixelSize() sets the height of a line, and measures fonts to find the size.
    font.SetFractionalPointSize(pixels * POINTS_PER_INCH / screenResolution());
}

} // namespace Nolvex
