// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// Where in a text something is: both count from 0.
struct TextPlace
{
    int index;
    int line;
};

/// The place between characters nearest to a point of the client area. For a point beyond the text, the
/// nearest place in it.
TextPlace textPlaceAt(const wxTextCtrl& text, const wxPoint& point);

/// The index at which a line begins, -1 beyond the last line.
int firstIndexOfLine(const wxTextCtrl& text, int line);

/// Shows the last line. Moves nothing but the view.
void scrollToEnd(const wxTextCtrl& text);

/// For scrollBackTo, where setting a selection scrolls to it; 0 where it does not.
int firstVisibleLine(const wxTextCtrl& text);

/// Shows that line first again.
void scrollBackTo(const wxTextCtrl& text, int line);

} // namespace Nolvex::Platform
