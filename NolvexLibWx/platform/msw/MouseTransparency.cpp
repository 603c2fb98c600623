// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/MouseTransparency.h"

#include <wx/window.h>

#include <wx/msw/wrapwin.h>

#include <commctrl.h>

namespace Nolvex {

namespace {

constexpr UINT_PTR SUBCLASS_ID = 1;

LRESULT CALLBACK answerHitTest(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                               DWORD_PTR /*data*/)
{
    if (message == WM_NCHITTEST)
        return HTTRANSPARENT;
    if (message == WM_NCDESTROY)
        RemoveWindowSubclass(window, &answerHitTest, id);
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

void Platform::letMouseThrough(wxWindow& window)
{
    const HWND handle = static_cast<HWND>(window.GetHandle());
    // A transparent layered window gets no mouse input at all. Windows lets child windows, to which popups
    // belong, be layered only if the manifest of the program says that it knows Windows 8.
    SetWindowLongPtrW(handle, GWL_EXSTYLE,
                      GetWindowLongPtrW(handle, GWL_EXSTYLE) | WS_EX_LAYERED | WS_EX_TRANSPARENT);
    constexpr BYTE OPAQUE_ALPHA = 255;
    SetLayeredWindowAttributes(handle, 0, OPAQUE_ALPHA, LWA_ALPHA);
    // In other programs, this answer passes the mouse on to the windows of the same thread.
    SetWindowSubclass(handle, &answerHitTest, SUBCLASS_ID, 0);
}

} // namespace Nolvex
