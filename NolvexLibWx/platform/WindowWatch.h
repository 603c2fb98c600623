// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/WindowHandle.h"

namespace Nolvex::Platform {

/// Tells on GTK that a native window is being destroyed. On Windows nothing is watched: Windows destroys the
/// dialogs of a window together with it and ignores the handles of destroyed windows.
class WindowWatch : private Noncopyable
{
public:
    /// Calls `onDestroyed` at most once, and never if the window does not exist.
    WindowWatch(WindowHandle window, Function<void()> onDestroyed);
    ~WindowWatch();

private:
    WindowHandle m_window; // null if no window is watched
    Function<void()> m_onDestroyed;
    unsigned long m_connection = 0;
};

} // namespace Nolvex::Platform
