// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/window.h>

// Does not include all that it needs, and so comes after.
#include <wx/weakref.h>

namespace Nolvex::Wx {

/// While it lives, changes to the window are not shown; at its end they appear at once. Nests. The window may
/// be destroyed meanwhile; of no window it does nothing.
class ScopedWindowFreezer : private Noncopyable
{
public:
    explicit ScopedWindowFreezer(wxWindow* window) : m_window(window)
    {
        if (m_window)
            m_window->Freeze();
    }

    ~ScopedWindowFreezer()
    {
        if (m_window)
            m_window->Thaw();
    }

private:
    wxWeakRef<wxWindow> m_window;
};

} // namespace Nolvex::Wx
