// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/window.h>

#include <functional>
#include <memory>

namespace Nolvex::Platform {

/// Returns true if the window is on the screen. GTK lets no other window capture the mouse.
bool canCaptureMouse(const wxWindow& window);

/// Watches a window that has captured the mouse while this object lives, and reports that the window can no
/// longer use the capture although the system does not end it: when the window or a parent is hidden or gets
/// another parent and, on GTK, when one of them is disabled.
class CaptureWatch : private Noncopyable
{
public:
    /// The window must outlive this object. With `staysWhenDisabled`, disabling the window is not reported,
    /// and on GTK the events of the mouse still reach the window, although GTK sends no input to disabled
    /// windows. `onUseless` may destroy this object.
    CaptureWatch(wxWindow& window, bool staysWhenDisabled, std::function<void()> onUseless);
    ~CaptureWatch();

private:
    class Signals;
    std::unique_ptr<Signals> m_signals;
};

} // namespace Nolvex::Platform
