// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataobj.h>
#include <wx/window.h>

namespace Nolvex::Platform {

/// Lets the user drag `data` from the window, to copy the data. Returns when the user has dropped the data or
/// has cancelled the drag; until then events are processed. On GTK, where the window takes part in its drag,
/// destroying the window cancels the drag.
///
/// To be called by a handler of wxEVT_MOTION while a mouse button is down, without the mouse capture. wxGTK
/// starts a drag in response to motion only, and a handler of another event, such as wxEVT_LEAVE_WINDOW, may
/// not let the window be destroyed, since wxWidgets goes on using the window.
void dragFrom(wxWindow& window, wxDataObject& data);

} // namespace Nolvex::Platform
