// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

namespace Nolvex::Platform {

/// Tells the window what GTK keeps from it when it, or a parent, is disabled: that the mouse has left it, and
/// that it has lost the capture if it had it. Once for each window; no sooner than the mouse is there, so
/// that making windows costs nothing.
void watchSensitivity(wxWindow& window);

} // namespace Nolvex::Platform
