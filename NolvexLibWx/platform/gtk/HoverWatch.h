// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

namespace Nolvex::Platform {

/// Sends a window the events wxEVT_LEAVE_WINDOW and wxEVT_ENTER_WINDOW when the window, or a parent, is
/// disabled or enabled again under the mouse: wxWidgets drops the crossing events that GTK sends then. Must
/// be called once for each window. A good time is the first painting, which comes before the mouse, and whose
/// cost is not a part of making the window.
void watchHover(wxWindow& window);

/// The same for a window whose events of the mouse come from an inner widget, as those of a text come from
/// the widget inside the scrolled one.
void watchHover(wxWindow& window, GtkWidget* widget);

} // namespace Nolvex::Platform
