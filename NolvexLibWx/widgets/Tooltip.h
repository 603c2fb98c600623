// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/popupwin.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <cstdint>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Wx {

/// A text that pops up beside the mouse when the mouse has rested on the owner for a while, in the system's
/// tooltip colours. A child window of the owner, which destroys the tooltip.
///
/// The tooltip stays inside the work area of the monitor. On Wayland, the compositor sees to that.
///
/// The tooltip hides when the mouse leaves the owner or is moved onto the tooltip, when the left button is
/// released on the owner, when the owner is hidden, and when the user turns to something else: presses a key
/// or a mouse button in any window of the program, or opens a menu or a modal dialog. It does not pop up
/// while a mouse button is down.
///
/// The tooltip takes neither the focus nor the mouse; clicks go to the window below. The owner's own handlers
/// of mouse events run as before.
///
/// A handler of the tooltip's wxEVT_SHOW may destroy the tooltip or the owner, and must not skip the event
/// then.
class NOLVEXLIBWX_EXPORT Tooltip : public wxPopupWindow, private Noncopyable
{
public:
    /// The owner becomes the parent of the tooltip.
    Tooltip(wxWindow* owner, const String& text);
    ~Tooltip() override;

    /// Wraps the text to 250 design units. A tooltip with an empty text never pops up, and hides if it is
    /// shown. A shown tooltip is resized at its place, and moved only as far as it takes to stay inside the
    /// work area.
    void setText(const String& text);

    /// Sets how long the mouse must rest, initially 600 milliseconds. Counts from the next movement of the
    /// mouse.
    void setDelay(std::int64_t milliseconds) { m_delay = milliseconds; }

    std::int64_t delay() const { return m_delay; }

    /// Returns false, as an owner that is a panel would pass its focus on to a child that accepts it.
    bool AcceptsFocus() const override { return false; }

    /// The wrapped text, one entry for each line.
    const Array<String>& lines() const { return m_lines; }

    /// Hides the tooltip. It pops up again when the mouse has moved and rested on the owner.
    void hide();

    bool Show(bool show = true) override;

protected:
    bool TryBefore(wxEvent& event) override;

private:
    void arm();
    void onOwnerLeft(wxMouseEvent& event);
    void onOwnerClicked(wxMouseEvent& event);
    void onOwnerMoved(wxMouseEvent& event);
    void onTimer(wxTimerEvent& event);
    void onPaint(wxPaintEvent& event);
    void hideAndTellLater();
    bool hasReason() const;
    void popUp();
    void place(Pixel corner);
    Bucket screenRegion() const;
    void fitToText();
    void paint(wxDC& dc) const;

    wxWeakRef<wxWindow> m_owner;
    Array<String> m_lines;
    wxTimer m_timer;
    std::int64_t m_delay = 600; // milliseconds
    wxPoint m_mouseWhenShown;
    bool m_holdsShowEvent = false;
    bool m_postsShowEvent = false;
};

namespace Detail {

/// Splits a text into lines: at every line-feed, which is dropped, and where a line gets wider than `limit`.
/// `measure` returns the width of a text.
///
/// At each space, the line up to that space is measured. If the line is too wide and contains an earlier
/// space between two words, the line ends at the last such space. A word is therefore never broken, and the
/// last word before a line-feed or the end of the text, which no space follows, stays on the line that it
/// began on. Spaces in a row count as one. The spaces at which a line is broken are dropped; all others stay,
/// including those at the start of a line. A final line-feed begins no further line; an empty text has no
/// lines.
NOLVEXLIBWX_EXPORT Array<String> splitTooltipLines(StringView text, int limit,
                                                   const Function<int(StringView)>& measure);

} // namespace Detail

} // namespace Nolvex::Wx
