// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// Tells the name, version and license of this program in a message over the window, and waits for the user.
void showAboutMessage(wxWindow* owner);

} // namespace Nolvex::Viewer
