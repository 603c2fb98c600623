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
    SetWindowSubclass(static_cast<HWND>(window.GetHandle()), &answerHitTest, SUBCLASS_ID, 0);
}

} // namespace Nolvex
