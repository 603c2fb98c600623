// SPDX-License-Identifier: MIT
#include "support/NativeTestWindow.h"

#include "NolvexLibWx/NativeWindows.h"
#include "support/Events.h"

#include <wx/msw/wrapwin.h>

#include <gtest/gtest.h>

namespace Nolvex {

namespace {

HWND hwnd(WindowHandle window)
{
    return static_cast<HWND>(window.native);
}

constexpr const wchar_t* CLASS_NAME = L"NolvexNativeTestWindow";

void registerWindowClass()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = CLASS_NAME;
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassW(&windowClass); // fails for the second window, whose class is registered already
}

HWND createWindow()
{
    registerWindowClass();
    return CreateWindowExW(0, CLASS_NAME, L"native", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 200, 150, 300, 200,
                           nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

HWND createField(HWND parent)
{
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 5, 5, 200, 25, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

} // namespace

Tests::NativeTestWindow::NativeTestWindow() : m_window{createWindow()}, m_field{createField(hwnd(m_window))}
{
    EXPECT_TRUE(takesFocusForGood());
}

Tests::NativeTestWindow::~NativeTestWindow()
{
    destroy();
    pumpEvents(10);
}

void Tests::NativeTestWindow::destroy()
{
    if (isAlive())
        DestroyWindow(hwnd(m_window));
}

// The activation of a window that was shown before may still be on its way, and would take the focus away
// again.
bool Tests::NativeTestWindow::takesFocusForGood() const
{
    constexpr int STABLE_TIME = 200; // milliseconds
    return pumpUntilStable(
        [this] {
            if (hasFocus())
                return true;
            SetForegroundWindow(hwnd(m_window));
            SetFocus(hwnd(m_field));
            return false;
        },
        STABLE_TIME);
}

bool Tests::NativeTestWindow::isAlive() const
{
    return IsWindow(hwnd(m_window)) != 0;
}

bool Tests::NativeTestWindow::isEnabled() const
{
    return IsWindowEnabled(hwnd(m_window)) && IsWindowEnabled(hwnd(m_field));
}

bool Tests::NativeTestWindow::hasFocus() const
{
    return GetForegroundWindow() == hwnd(m_window) && GetFocus() == hwnd(m_field);
}

String Tests::NativeTestWindow::text() const
{
    constexpr int MAX_LENGTH = 100;
    wchar_t text[MAX_LENGTH]{};
    GetWindowTextW(hwnd(m_field), text, MAX_LENGTH);
    return text;
}

Bucket Tests::NativeTestWindow::region() const
{
    return Wx::getScreenRegion(m_window);
}

} // namespace Nolvex
