// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Keeps the input method of the user away from a window that takes keys but no text. To be called once,
/// when the window has been created.
///
/// The input method of X11, which GTK uses for Japanese, Korean and Chinese unless the desktop brings
/// another, turns a window that gets the focus into a window of the X server. Such a window does not show its
/// parent behind what it paints.
void useNoInputMethod(wxWindow& window);

} // namespace Nolvex::Platform
