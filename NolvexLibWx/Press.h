// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MouseCapture.h"

class WXDLLIMPEXP_FWD_CORE wxPoint;

namespace Nolvex::Wx {

/// The press of a control. Every control that acts on release has a member of this class. A press begins when
/// a mouse button or a key goes down, and ends when the button or key is released or the control cancels the
/// press. A press by the mouse captures the mouse until the press ends.
///
/// The control must handle wxEVT_MOUSE_CAPTURE_LOST by calling `cancel`. MouseCapture explains when this
/// event is sent.
class NOLVEXLIBWX_EXPORT Press : private Noncopyable
{
public:
    enum class Means
    {
        MOUSE,
        KEYBOARD,
    };

    enum class Outcome
    {
        NONE,      ///< there was no such press
        COMPLETED, ///< released inside the control, or by the keyboard
        CANCELLED, ///< released outside
    };

    using WhenDisabled = MouseCapture::WhenDisabled;

    /// `control` is the window that is pressed.
    explicit Press(wxWindow* control, WhenDisabled whenDisabled = WhenDisabled::ENDS);
    ~Press();

    /// If a press has already begun, it continues, and `means` replaces its means. A press that goes on by
    /// the keyboard releases the mouse capture.
    void begin(Means means);

    /// Returns true if the control is pressed by any means.
    bool isHeld() const { return m_held; }

    bool isHeldBy(Means means) const { return m_held && m_means == means; }

    /// Must be called when the mouse button is released. Ends a press by the mouse and its capture; without
    /// such a press the mouse stays with its holder. `position` is in client coordinates of the control.
    Outcome release(const wxPoint& position);

    /// Must be called when the key is released. Ends a press by the keyboard.
    Outcome releaseKey();

    /// Ends any press and releases the mouse capture. Returns true if there was a press.
    bool cancel();

    /// Releases the mouse capture before `release` is called, so that the control can call code of its user
    /// in between.
    void freeMouse();

    /// Returns true if the press captured the mouse and the mouse has been taken away, as explained at
    /// MouseCapture::isLost.
    bool hasLostMouse() const { return m_capture.isLost(); }

    /// Captures the mouse again for a press that continues although the system has ended the capture.
    void captureAgain();

private:
    wxWindow* m_control;
    MouseCapture m_capture;
    Means m_means = Means::MOUSE;
    bool m_held = false;
};

} // namespace Nolvex::Wx
