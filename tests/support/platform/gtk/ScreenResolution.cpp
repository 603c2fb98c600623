// SPDX-License-Identifier: MIT
#include "support/ScreenResolution.h"

#include <gdk/gdk.h>

namespace Nolvex::Tests {

ScreenResolution::ScreenResolution(double pixelsPerInch)
    : m_previous(gdk_screen_get_resolution(gdk_screen_get_default())), m_set(true)
{
    gdk_screen_set_resolution(gdk_screen_get_default(), pixelsPerInch);
}

ScreenResolution::~ScreenResolution()
{
    gdk_screen_set_resolution(gdk_screen_get_default(), m_previous);
}

} // namespace Nolvex::Tests
