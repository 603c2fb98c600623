// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxTextCtrl;

namespace Nolvex::Platform {

/// Returns the text position (0 before the first character) that is nearest to a point of the client area,
/// also for a point beyond the text.
int textIndexAt(const wxTextCtrl& text, const wxPoint& point);

/// A line as shown on the screen. A line of the text that is wrapped counts as several.
struct TextLine
{
    long start;

    /// The end of the text for the last line. For every other line, the position before the start of the
    /// next, which leaves out the line break or the last character of a wrapped line.
    long end;
};

/// Returns the line at a point of the client area, or the nearest line.
TextLine textLineAt(const wxTextCtrl& text, const wxPoint& point);

/// Scrolls to the last line. The caret and the selection stay.
void scrollToEnd(const wxTextCtrl& text);

/// Scrolls to the position, also in a frozen control.
void scrollToPosition(wxTextCtrl& text, long position);

/// The visible part of a text: the first line and the distance that the text is scrolled to the right.
struct TextView
{
    int firstLine;
    int left;
};

/// Returns the part for scrollBackTo. Returns zeros on GTK, where setting a selection does not scroll.
TextView visiblePart(const wxTextCtrl& text);

/// Scrolls back to the part that visiblePart returned.
void scrollBackTo(const wxTextCtrl& text, const TextView& view);

} // namespace Nolvex::Platform
