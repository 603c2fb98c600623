// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// The space between the controls of the window, in design units.
inline constexpr int MARGIN = 8;

/// Returns the client size that shows the whole picture, if the screen is large enough, and beside the
/// picture a vertical scroll bar. The scroll bar appears when the options or the log take some of the height,
/// and would force a horizontal scroll bar if the width were missing. `heightAbove` is the height of what
/// stands above the picture.
wxSize clientSizeFor(const wxSize& picture, int heightAbove);

/// Enlarges the window where the controls of the panel that fills the window need more room than they have,
/// and lays the panel out.
void makeRoomFor(wxWindow& panel, wxTopLevelWindow& window);

/// Makes the window wider, or narrower by a negative number, as far as the screen allows. A maximised window
/// stays as it is.
void widen(wxTopLevelWindow& window, int pixels);

} // namespace Nolvex::Viewer
