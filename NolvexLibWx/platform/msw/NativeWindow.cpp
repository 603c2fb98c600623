// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/NativeWindow.h"

#include <wx/msw/wrapwin.h>

namespace Nolvex {

namespace {

HWND toHwnd(WindowHandle window)
{
    return static_cast<HWND>(window.native);
}

} // namespace

bool Platform::isWindow(WindowHandle window)
{
    return window && IsWindow(toHwnd(window));
}

WindowHandle Platform::topLevelWindow(WindowHandle window)
{
    return {isWindow(window) ? GetAncestor(toHwnd(window), GA_ROOT) : nullptr};
}

Bucket Platform::windowRegion(WindowHandle window)
{
    RECT rect{};
    if (!isWindow(window) || !GetWindowRect(toHwnd(window), &rect))
        return {};
    return {{rect.left, rect.top}, {rect.right, rect.bottom}};
}

WindowHandle Platform::windowOwner(WindowHandle window)
{
    if (!isWindow(window))
        return {};
    return {reinterpret_cast<void*>(GetWindowLongPtrW(toHwnd(window), GWLP_HWNDPARENT))};
}

void Platform::setWindowOwner(WindowHandle window, WindowHandle owner)
{
    if (!isWindow(window) || (owner && !isWindow(owner)))
        return;
    SetWindowLongPtrW(toHwnd(window), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner.native));
}

} // namespace Nolvex
