// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// The index, from 0, of the place between characters nearest to a point of the client area. For a point
/// beyond the text, the nearest place in it.
int textIndexAt(const wxTextCtrl& text, const wxPoint& point);

/// A line as it is shown: of a text that wraps, a part of what stands between two breaks.
struct TextLine
{
    long start;

    /// Of the last line the end of the text. Of every other one a place before the start of the next, so that
    /// the break, or the character at which it is wrapped, is left out.
    long end;
};

/// The line at a point of the client area, or the one nearest to it.
TextLine textLineAt(const wxTextCtrl& text, const wxPoint& point);

/// Shows the last line. Moves nothing but the view.
void scrollToEnd(const wxTextCtrl& text);

/// Shows the position, also in a control that is frozen.
void scrollToPosition(wxTextCtrl& text, long position);

/// What of a text is in view: its first line and how far it is scrolled to the right.
struct TextView
{
    int firstLine;
    int left;
};

/// For scrollBackTo, where setting a selection scrolls to it; zeros where it does not.
TextView visiblePart(const wxTextCtrl& text);

/// Shows that part again.
void scrollBackTo(const wxTextCtrl& text, const TextView& view);

} // namespace Nolvex::Platform
