// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/window.h>

// wx/weakref.h does not include all headers that it needs, and therefore follows wx/window.h.
#include <wx/weakref.h>

namespace Nolvex::Wx {

/// Keeps changes to the window from being shown while an object of this class lives; they appear together
/// when it ends. Guards may be nested. The window may be null, and may be destroyed before the guard.
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
