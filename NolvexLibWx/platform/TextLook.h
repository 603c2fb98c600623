// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// Makes a native text control follow the skin where wxWidgets does not: the border is a shade of the text
/// colour, the text keeps a distance from the border, and a disabled control looks disabled. Must be called
/// once, after the control has been created.
void adaptTextLook(const wxTextCtrl& text);

} // namespace Nolvex::Platform
