// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/NativeWindow.h"

#include <wx/msw/wrapwin.h>

namespace Nolvex {

namespace {

HWND toHwnd(WindowHandle window)
{
    return static_cast<HWND>(window.native);
}

bool isAlive(WindowHandle window)
{
    return window && IsWindow(toHwnd(window));
}

} // namespace

Bucket Platform::windowRegion(WindowHandle window)
{
    RECT rect{};
    if (!isAlive(window) || !GetWindowRect(toHwnd(window), &rect))
        return {};
    return {{rect.left, rect.top}, {rect.right, rect.bottom}};
}

WindowHandle Platform::windowOwner(WindowHandle window)
{
    if (!isAlive(window))
        return {};
    return {reinterpret_cast<void*>(GetWindowLongPtrW(toHwnd(window), GWLP_HWNDPARENT))};
}

void Platform::setWindowOwner(WindowHandle window, WindowHandle owner)
{
    if (!isAlive(window) || (owner && !isAlive(owner)))
        return;
    SetWindowLongPtrW(toHwnd(window), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner.native));
}

} // namespace Nolvex
