// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/event.h>
#include <wx/weakref.h>
#include <wx/window.h>

namespace Nolvex::Platform {

/// Takes the mouse away from the window that has captured the mouse, and gives the mouse back when this
/// object is destroyed. While a button is down, Wayland keeps sending the events of the mouse to the window
/// under which the button was pressed, captured or not. If a window has captured the mouse, GTK asks Wayland
/// for a popup that grabs the mouse, as a menu does, and the events of the mouse then go to that popup.
class UngrabbedMouse : private Noncopyable
{
public:
    UngrabbedMouse() : m_capturing(wxWindow::GetCapture())
    {
        if (m_capturing)
            m_capturing->ReleaseMouse();
    }

    ~UngrabbedMouse()
    {
        if (m_capturing && m_capturing != wxWindow::GetCapture())
            m_capturing->CaptureMouse();
    }

private:
    wxWeakRef<wxWindow> m_capturing;
};

} // namespace Nolvex::Platform
