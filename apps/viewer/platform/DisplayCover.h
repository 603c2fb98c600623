// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Viewer::Platform {

/// Shows the window over all of a display, in front of task bars and the like. `display` is an index of
/// wxDisplay.
void showOverDisplay(wxTopLevelWindow& window, unsigned display);

} // namespace Nolvex::Viewer::Platform
