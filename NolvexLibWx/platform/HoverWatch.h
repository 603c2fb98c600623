// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Makes a window receive wxEVT_LEAVE_WINDOW and wxEVT_ENTER_WINDOW when the window, or a parent, is disabled
/// or enabled again under the mouse, and wxEVT_LEAVE_WINDOW when the mouse turns out to be elsewhere after a
/// window has freed the mouse. Must be called once for each window. The first paint is early enough for
/// a window that is disabled before the mouse comes, and late enough for the making of windows to cost
/// nothing.
void watchHover(wxWindow& window);

} // namespace Nolvex::Platform
