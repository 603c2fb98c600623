// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/DisplayCover.h"

#include <wx/display.h>
#include <wx/toplevel.h>

namespace Nolvex::Viewer::Platform {

// Windows hides the task bar behind a window that stays on top and covers the whole display.
void showOverDisplay(wxTopLevelWindow& window, unsigned display)
{
    window.SetSize(wxDisplay(display).GetGeometry());
    window.Show();
    window.Raise();
}

} // namespace Nolvex::Viewer::Platform
