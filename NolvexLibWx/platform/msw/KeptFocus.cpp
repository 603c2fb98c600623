// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/KeptFocus.h"

#include <wx/msw/wrapwin.h>

namespace Nolvex {

namespace {

bool isOfThisThread(HWND window)
{
    return window && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

bool takesInput(HWND window)
{
    return isOfThisThread(window) && IsWindowVisible(window) && IsWindowEnabled(window);
}

} // namespace

struct Platform::KeptFocus::Places
{
    HWND active; // null if the user was working with another program
    HWND focus;
};

Platform::KeptFocus::KeptFocus()
{
    HWND const active = GetForegroundWindow();
    m_places = std::make_unique<Places>(Places{isOfThisThread(active) ? active : nullptr, GetFocus()});
}

Platform::KeptFocus::~KeptFocus()
{
    // Windows refuses to activate the window if the user has gone to another program meanwhile.
    if (!isOfThisThread(GetForegroundWindow()) && takesInput(m_places->active))
        SetForegroundWindow(m_places->active);
    const bool isActive = m_places->active && GetForegroundWindow() == m_places->active;
    if (isActive && GetFocus() != m_places->focus && takesInput(m_places->focus))
        SetFocus(m_places->focus);
}

} // namespace Nolvex
