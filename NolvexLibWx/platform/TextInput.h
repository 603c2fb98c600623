// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// Lets the control hold any amount of text. An EDIT of Windows is limited to 30,000 characters when it is
/// new; wxWidgets raises the limit when an insertion reaches it, but undoes what was inserted before as well.
void removeLengthLimit(wxTextCtrl& text);

/// To be called before wxWidgets captures the mouse for the control.
void prepareCapture(wxTextCtrl& text);

/// To be called when wxWidgets has captured the mouse for the control: lets the events of the mouse go on to
/// the part of the control that holds the text.
void directCapture(wxTextCtrl& text);

} // namespace Nolvex::Platform
