// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NativeWindows.h"

#include "NolvexLibWx/platform/NativeWindow.h"

#include <wx/window.h>

namespace Nolvex {

namespace {

// A longer chain of owners must be a circle that other code has made.
constexpr int MAX_OWNERS = 1000;

bool isOwnedBy(WindowHandle window, WindowHandle owner)
{
    for (int count = 0; window && count < MAX_OWNERS; ++count) {
        if (window == owner)
            return true;
        window = Platform::windowOwner(window);
    }
    return static_cast<bool>(window);
}

} // namespace

WindowHandle Wx::getWindowNativeHandle(const wxWindow* window)
{
    return {window == nullptr ? nullptr : window->GetHandle()};
}

Bucket Wx::getScreenRegion(WindowHandle window)
{
    return Platform::windowRegion(window);
}

WindowHandle Wx::getOwnerAsNativeHandle(WindowHandle window)
{
    return Platform::windowOwner(window);
}

WindowHandle Wx::setOwnerFromNativeHandle(WindowHandle window, WindowHandle owner)
{
    // A circle of owners would hang the system, which follows the owners to the end when it restacks windows.
    if (!isOwnedBy(owner, window))
        Platform::setWindowOwner(window, owner);
    return window;
}

} // namespace Nolvex
