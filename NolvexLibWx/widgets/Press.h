// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MouseCapture.h"

class WXDLLIMPEXP_FWD_CORE wxPoint;

namespace Nolvex::Wx {

/// The press of a control: a member of every control that acts when it is released. It begins with a button
/// of the mouse or a key going down, and is over when that is released, or when the control cancels the
/// press. A press by the mouse captures the mouse for as long as it lasts.
///
/// The control handles wxEVT_MOUSE_CAPTURE_LOST by a call of `cancel`. MouseCapture says when that event
/// comes.
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

    /// A press that has begun already goes on, by these means from now on: the keyboard gives the mouse back.
    void begin(Means means);

    /// Whether the control is pressed, by whatever means.
    bool isHeld() const { return m_held; }

    bool isHeldBy(Means means) const { return m_held && m_means == means; }

    /// The button of the mouse was released at a place in the control's client coordinates. Ends a press by
    /// the mouse and gives the mouse back; without such a press the mouse stays with its holder.
    Outcome release(const wxPoint& position);

    /// The key was released. Ends a press by the keyboard.
    Outcome releaseKey();

    /// Ends any press and gives the mouse back. Returns whether there was a press.
    bool cancel();

    /// Gives the mouse back before the release is made known, so that code of the control's user can be
    /// called in between.
    void freeMouse();

    /// Captures the mouse again for a press that goes on although the system has taken the capture away.
    void captureAgain();

private:
    wxWindow* m_control;
    MouseCapture m_capture;
    Means m_means = Means::MOUSE;
    bool m_held = false;
};

} // namespace Nolvex::Wx
