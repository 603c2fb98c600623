// SPDX-License-Identifier: MIT
#pragma once

#include "support/Events.h"

#include <wx/uiaction.h>
#include <wx/window.h>

namespace Nolvex::Tests {

// These functions make real input: the system receives the input and sends events to the window under the
// mouse or in focus. Each function processes events for a while afterwards.

constexpr int GESTURE_TIME = 50; // milliseconds

/// The position is in the window's client area or beside it.
inline void moveMouse(const wxWindow* window, const wxPoint& position)
{
    wxUIActionSimulator().MouseMove(window->ClientToScreen(position));
    pumpEvents(GESTURE_TIME);
}

inline void pressMouse()
{
    wxUIActionSimulator().MouseDown(wxMOUSE_BTN_LEFT);
    pumpEvents(GESTURE_TIME);
}

inline void releaseMouse()
{
    wxUIActionSimulator().MouseUp(wxMOUSE_BTN_LEFT);
    pumpEvents(GESTURE_TIME);
}

inline void pressMouseAt(const wxWindow* window, const wxPoint& position)
{
    moveMouse(window, position);
    pressMouse();
}

inline void clickAt(const wxWindow* window, const wxPoint& position)
{
    pressMouseAt(window, position);
    releaseMouse();
}

/// Presses and releases a key.
inline void typeKey(int key, int modifiers = wxMOD_NONE)
{
    wxUIActionSimulator().Char(key, modifiers);
    pumpEvents(GESTURE_TIME);
}

} // namespace Nolvex::Tests
