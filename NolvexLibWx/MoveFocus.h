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

/// Gives the focus to the nearest sibling, in the order of the parent's children and from its end on at its
/// start, that is a Focusable and can take the focus now. Without one the focus stays where it is.
NOLVEXLIBWX_EXPORT void moveFocus(wxWindow* window, MoveFocusDirection direction);

} // namespace Nolvex::Wx
