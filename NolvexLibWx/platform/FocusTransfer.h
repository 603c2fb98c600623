// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Gives the window the focus as wxWindow::SetFocus does. Returns false if a handler of a focus event
/// destroyed the window, of which GTK would otherwise keep a dangling pointer.
bool transferFocus(wxWindow& window);

} // namespace Nolvex::Platform
