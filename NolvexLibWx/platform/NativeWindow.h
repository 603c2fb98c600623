// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/WindowHandle.h"

namespace Nolvex::Platform {

// Functions for the windows of the system. All of them accept null handles and handles of destroyed windows.

/// Returns false for a window that is being destroyed.
bool isWindow(WindowHandle window);

/// Returns the top-level window that is, or contains, `window`. Returns null if there is none.
WindowHandle topLevelWindow(WindowHandle window);

/// Returns an empty region, at the origin, if there is no window or the system has not yet placed it.
Bucket windowRegion(WindowHandle window);

/// Returns null if the window has no owner or does not exist.
WindowHandle windowOwner(WindowHandle window);

/// Sets the owner of the window, or removes it for null. Does nothing if one of the windows does not exist
/// or, on GTK, is no top-level window. The caller must make sure that no window becomes its own owner.
void setWindowOwner(WindowHandle window, WindowHandle owner);

} // namespace Nolvex::Platform
