// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// Captures the mouse, from a handler of its press, so that the events of the mouse go on arriving at the
/// control.
void captureMouse(wxTextCtrl& text);

} // namespace Nolvex::Platform
