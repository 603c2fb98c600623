// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/ScreenResolution.h"

#include <gdk/gdk.h>

namespace Nolvex {

double Platform::screenResolution()
{
    GdkScreen* screen = gdk_screen_get_default();
    const double resolution = screen != nullptr ? gdk_screen_get_resolution(screen) : 0.0;
    // GDK reports -1 until a resolution has been set.
    return resolution > 0.0 ? resolution : DESIGN_RESOLUTION;
}

} // namespace Nolvex
