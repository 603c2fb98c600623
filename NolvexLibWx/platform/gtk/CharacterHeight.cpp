// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CharacterHeight.h"

#include <gdk/gdk.h>

namespace Nolvex {

namespace {

constexpr double POINTS_PER_INCH = 72.0;
constexpr double DEFAULT_RESOLUTION = 96.0;

/// The pixels per inch by which GTK turns points into pixels.
double screenResolution()
{
    GdkScreen* screen = gdk_screen_get_default();
    const double resolution = screen ? gdk_screen_get_resolution(screen) : 0.0;
    return resolution > 0.0 ? resolution
                            : DEFAULT_RESOLUTION; // GDK reports -1 until a resolution has been set
}

} // namespace

void Platform::setCharacterHeight(wxFont& font, int pixels)
{
    // On GTK wxFont::SetPixelSize() sets the height of a line, and measures fonts to find the size.
    font.SetFractionalPointSize(pixels * POINTS_PER_INCH / screenResolution());
}

} // namespace Nolvex
