// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// Must be called before wxWidgets captures the mouse for the control.
void prepareCapture(wxTextCtrl& text);

/// Must be called when wxWidgets has captured the mouse for the control. Directs the events of the mouse to
/// the part of the control that holds the text.
void directCapture(wxTextCtrl& text);

} // namespace Nolvex::Platform
