// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/window.h>

#include <functional>
#include <memory>

namespace Nolvex::Platform {

/// Whether the window is on the screen, without which GTK does not let a window capture the mouse.
bool canCaptureMouse(const wxWindow& window);

/// Watches a window that has captured the mouse, as long as this object lives, and tells when the window can
/// no longer use the capture although the system leaves it alone: when the window or a parent is hidden or
/// gets another parent, and, on GTK, when one of them is disabled.
class CaptureWatch : private Noncopyable
{
public:
    /// The window must outlive this object. With `staysWhenDisabled`, being disabled does not count, and GTK,
    /// which sends no input to what is disabled, passes the events of the mouse on to the window
    /// nevertheless. `onUseless` may destroy this object.
    CaptureWatch(wxWindow& window, bool staysWhenDisabled, std::function<void()> onUseless);
    ~CaptureWatch();

private:
    class Signals;
    std::unique_ptr<Signals> m_signals;
};

} // namespace Nolvex::Platform
