// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/popupwin.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <cstdint>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Wx {

/// A text that pops up beside the mouse when it has rested on the owner for a while, in the system's tooltip
/// colours. It goes when the mouse leaves the owner, when the left button is released on it, or when it is
/// hidden; it never takes the focus. A child window of its owner, which destroys it.
///
/// The owner's mouse events are only listened to, its own handlers run as before.
class NOLVEXLIBWX_EXPORT Tooltip : public wxPopupWindow, private Noncopyable
{
public:
    /// The toolkit makes the owner the parent of the tooltip.
    Tooltip(wxWindow* owner, const String& text);
    ~Tooltip() override;

    /// Wraps the text to 250 design units. Without text nothing pops up. While shown, the tooltip takes its
    /// new size at its place, moved just so far that it stays inside the work area; without text it hides.
    void setText(const String& text);

    /// How long the mouse must rest, 600 milliseconds at first. Counts from the next movement of the mouse
    /// on.
    void setDelay(std::int64_t milliseconds) { m_delay = milliseconds; }

    std::int64_t delay() const { return m_delay; }

    /// Never. An owner that is a panel would give the focus to a child that takes it.
    bool AcceptsFocus() const override { return false; }

    /// The text as it is wrapped, one entry a line.
    const Array<String>& lines() const { return m_lines; }

private:
    void arm();
    void hide();
    void onOwnerLeft(wxMouseEvent& event);
    void onOwnerMoved(wxMouseEvent& event);
    void onOwnerClicked(wxMouseEvent& event);
    void onTimer(wxTimerEvent& event);
    void onPaint(wxPaintEvent& event);
    bool hasReason() const;
    void popUp();
    void fitToText();
    void paint(wxDC& dc) const;

    wxWeakRef<wxWindow> m_owner;
    Array<String> m_lines;
    wxTimer m_timer;
    std::int64_t m_delay = 600;
};

namespace Detail {

/// Splits a text into lines: at every line-feed, which is dropped, and where a line gets wider than `limit`.
/// The width of a text is what `measure` says.
///
/// At each space the line up to there is measured; when it is too wide and has an earlier space between two
/// words, it ends at the last of those. So a word is never broken, and the last word before a line-feed or
/// the end, which no space follows, stays on the line it began on. Spaces in a row count as one, the spaces
/// at which a line is broken are dropped, all others stay, those at the start of a line included. A final
/// line-feed begins no further line; an empty text has no lines.
NOLVEXLIBWX_EXPORT Array<String> splitTooltipLines(StringView text, int limit,
                                                   const Function<int(StringView)>& measure);

} // namespace Detail

} // namespace Nolvex::Wx
