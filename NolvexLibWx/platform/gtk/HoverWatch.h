// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/platform/HoverWatch.h"

#include <wx/window.h>

namespace Nolvex::Platform {

/// As the function for all systems, for a window whose events of the mouse come from an inner widget, as
/// those of a text come from the widget inside the scrolled one.
void watchHover(wxWindow& window, GtkWidget* widget);

} // namespace Nolvex::Platform
