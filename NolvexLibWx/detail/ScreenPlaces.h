// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx::Detail {

// wxWidgets counts x from the right in a window with a layout from right to left. On GTK its GetScreenRect()
// then begins at the right edge of the window, and its ScreenToClient() is wrong, so that these functions
// take their place.

/// Returns the place of the window's client area on the screen.
wxRect clientRectOnScreen(const wxWindow& window);

/// Returns the place of the window on the screen.
wxRect screenRect(const wxWindow& window);

/// Returns the position on the screen in the coordinates of the window's client area.
wxPoint screenToClient(const wxWindow& window, const wxPoint& position);

} // namespace Nolvex::Wx::Detail
