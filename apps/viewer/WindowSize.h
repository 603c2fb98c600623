// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// The space between the controls of the window, in design units.
inline constexpr int MARGIN = 8;

/// Returns the client size that shows the whole picture at 1 : 1, if the screen is large enough.
/// `heightAbove` is the height of what stands above the picture.
wxSize clientSizeFor(const wxSize& picture, int heightAbove);

/// Enlarges the window where the controls of the panel that fills the window need more room than they have,
/// and lays the panel out.
void makeRoomFor(wxWindow& panel, wxTopLevelWindow& window);

/// Returns the part of the window's display that bars of the desktop leave free.
wxRect screenOf(const wxTopLevelWindow& window);

/// Returns the client size nearest to this one that is neither too small for the controls nor too large for
/// the screen.
wxSize withinBounds(wxSize size, const wxRect& screen);

/// Makes the window wider, or narrower by a negative number, as far as the screen allows. A maximised window
/// stays as it is.
void widen(wxTopLevelWindow& window, int pixels);

} // namespace Nolvex::Viewer
