// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/window.h>

namespace Nolvex::Wx {

/// While it lives, changes to the window, which must outlive it, are not shown; at its end they appear at
/// once. Nests.
class ScopedWindowFreezer : private Noncopyable
{
public:
    explicit ScopedWindowFreezer(wxWindow* window) : m_window(window) { m_window->Freeze(); }

    ~ScopedWindowFreezer() { m_window->Thaw(); }

private:
    wxWindow* m_window;
};

} // namespace Nolvex::Wx
