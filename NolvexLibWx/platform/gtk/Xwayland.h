// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

using GdkDisplay = struct _GdkDisplay;

namespace Nolvex::Platform {

/// Returns true if the X server of the display shows its windows on a Wayland desktop. The server is asked
/// only once for each display, which must be an X11 display.
bool isXwayland(GdkDisplay* display);

/// Returns true for the names that XWayland gives its outputs before version 23.1: XWAYLAND and a number.
bool isXwaylandOutput(std::string_view name);

} // namespace Nolvex::Platform
