// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

/// Any value but FORWARD means backward.
enum class MoveFocusDirection : int
{
    FORWARD = 0,
    BACKWARD = 1,
};

/// Gives the focus to the nearest sibling that is a Focusable and can take the focus now. The siblings are
/// searched in the order of the parent's children; the search goes round at the end. The focus stays where it
/// is if there is no such sibling.
NOLVEXLIBWX_EXPORT void moveFocus(wxWindow* window, MoveFocusDirection direction);

/// Gives the focus to the nearest control that is not in the group of `window`. The group is `window` and the
/// siblings between which moveFocus goes round. The controls of the whole top-level window are searched in
/// the order of the Tab key, and the search goes round at the end. The focus stays where it is if there is no
/// other control.
NOLVEXLIBWX_EXPORT void leaveFocusGroup(wxWindow* window, MoveFocusDirection direction);

/// Makes Ctrl+Tab and Ctrl+Shift+Tab, pressed in `window` or in a child of it, leave the group of `window`.
/// Every Focusable control calls this function once, as Tab alone never leads out of its group.
NOLVEXLIBWX_EXPORT void bindGroupExit(wxWindow& window);

/// Whether the window itself takes the focus when the user presses Tab often enough. A container does not if
/// one of its children takes the focus instead.
NOLVEXLIBWX_EXPORT bool isTabStop(const wxWindow& window);

} // namespace Nolvex::Wx
