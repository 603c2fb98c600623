// SPDX-License-Identifier: MIT
#include "support/RawInput.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <memory>

namespace Nolvex {

namespace {

struct DisplayCloser
{
    void operator()(Display* display) const { XCloseDisplay(display); }
};

// A connection of its own leaves the events of GTK alone.
Display* display()
{
    static const std::unique_ptr<Display, DisplayCloser> CONNECTION(XOpenDisplay(nullptr));
    return CONNECTION.get();
}

void pressLeft(bool isDown)
{
    XTestFakeButtonEvent(display(), Button1, isDown ? True : False, CurrentTime);
    XFlush(display());
}

} // namespace

void Tests::placeMouse(const wxPoint& screenPosition)
{
    XTestFakeMotionEvent(display(), -1, screenPosition.x, screenPosition.y, CurrentTime);
    XFlush(display());
}

void Tests::holdMouse()
{
    pressLeft(true);
}

void Tests::dropMouse()
{
    pressLeft(false);
}

void Tests::tapEscape()
{
    const KeyCode escape = XKeysymToKeycode(display(), XK_Escape);
    XTestFakeKeyEvent(display(), escape, True, CurrentTime);
    XTestFakeKeyEvent(display(), escape, False, CurrentTime);
    XFlush(display());
}

} // namespace Nolvex
