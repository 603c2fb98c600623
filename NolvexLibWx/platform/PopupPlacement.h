// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxPoint;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

// On Wayland, no program knows where its windows are on the screen, so that only the compositor can keep a
// popup inside the screen. These functions ask the compositor for that. On other systems they do nothing and
// return false, and the caller has to move the popup to the right place.
//
// `popup` is a popup window or a PopupFrame, shown or hidden, and gets its place anew if the window that it
// belongs to has moved. Positions are those that wxWidgets gives for the screen, which on Wayland are
// relative to the frame or dialog of `owner`, even if the owner is in a popup of that frame.

/// Puts the popup below the owner or, at the bottom of the screen, above the owner if the popup fits there.
bool placeBeside(wxWindow& popup, const wxWindow& owner);

/// Puts the popup's top left corner at the point, or as near to the point as the screen allows.
bool placeAt(wxWindow& popup, const wxWindow& owner, const wxPoint& corner);

} // namespace Nolvex::Platform
