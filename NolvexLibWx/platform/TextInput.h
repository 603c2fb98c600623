// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Has the Tab key ask the control's AcceptsFocusFromKeyboard, also where the system moves the focus itself.
void askBeforeTabbing(wxWindow& control);

/// Captures the mouse, from a handler of its press, so that the events of the mouse go on arriving at the
/// control. A single line on GTK needs no capture for that and takes none.
void captureMouse(wxTextCtrl& text);

} // namespace Nolvex::Platform
