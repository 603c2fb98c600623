// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Lets the mouse through: from now on, clicks and movements on `window`, a top-level or popup window, go to
/// the program's window below, as if `window` were not there.
void letMouseThrough(wxWindow& window);

} // namespace Nolvex::Platform
