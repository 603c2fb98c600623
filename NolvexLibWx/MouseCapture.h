// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxWindow;
class WXDLLIMPEXP_FWD_CORE wxWindowDestroyEvent;

namespace Nolvex::Wx {

/// The mouse capture of a control: a member of the control, begun and ended any number of times and in any
/// order. wxWidgets asserts when a window captures the mouse twice, releases a capture that it does not hold
/// or is destroyed while it holds one; this class sees to it that none of that happens.
///
/// The capture ends by itself when the window, or a parent, is hidden, disabled or minimised and when the
/// window gets another parent. The window is then sent wxEVT_MOUSE_CAPTURE_LOST, as it is when the system
/// takes the capture away; the event comes later, when events are next processed. The control must handle
/// that event by a call of `end`, without skipping it, and must call `end` before it calls code of its user.
class NOLVEXLIBWX_EXPORT MouseCapture : private Noncopyable
{
public:
    /// What becomes of the capture when the window, or a parent, is disabled.
    enum class WhenDisabled
    {
        ENDS,
        STAYS, ///< the window goes on getting the events of the mouse (on Windows it must begin again)
    };

    /// `window` is the control itself. It may be destroyed before this object.
    explicit MouseCapture(wxWindow* window, WhenDisabled whenDisabled = WhenDisabled::ENDS);

    /// Ends the capture.
    ~MouseCapture();

    /// Does nothing if the window is not on the screen, if it has the capture already, or if it had it and
    /// another window has captured the mouse since then: wxWidgets gives the mouse back when that window
    /// releases it.
    void begin();

    /// Does nothing if the window does not have the capture. Windows that captured the mouse since then keep
    /// it.
    void end();

    bool isHeld() const;

    /// Returns true if the capture has begun, but the mouse has been taken away. While Windows takes the
    /// mouse away, wxWidgets still counts the window among those that hold the mouse: a handler of
    /// wxEVT_MOUSE_CAPTURE_LOST for which this function returns true must not destroy the window.
    bool isLost() const { return m_watch && !isHeld(); }

private:
    class Watch;

    void onDestroyed(wxWindowDestroyEvent& event);

    wxWindow* m_window; // null after the window has been destroyed
    WhenDisabled m_whenDisabled;
    bool m_begunEver = false;       // then this object listens for the destruction of the window
    std::unique_ptr<Watch> m_watch; // exists from begin to end
};

} // namespace Nolvex::Wx
