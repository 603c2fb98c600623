// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataobj.h>
#include <wx/window.h>

namespace Nolvex::Platform {

/// Lets the user drag `data` from the window, to copy the data. Returns when the user has dropped the data or
/// has cancelled the drag; until then events are processed. On GTK, where the window takes part in its drag,
/// destroying the window cancels the drag.
///
/// Must be called by a handler of wxEVT_MOTION, while a mouse button is down and the mouse is not captured.
/// wxGTK can start a drag only while it handles an event of the mouse. A handler of wxEVT_LEAVE_WINDOW would
/// be too early: wxWidgets sends that event first and then goes on using the window, which may be gone by
/// then.
void dragFrom(wxWindow& window, wxDataObject& data);

} // namespace Nolvex::Platform
