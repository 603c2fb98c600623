// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/WindowHandle.h"

namespace Nolvex::Platform {

// The system's own windows. All take any handle: null, and those of windows that have been destroyed.

/// Empty, at the origin, for none and where the system knows no place for the window yet.
Bucket windowRegion(WindowHandle window);

/// Null for none.
WindowHandle windowOwner(WindowHandle window);

/// A null owner makes the window unowned. Does nothing when one of them is no window that can be part of
/// it. The caller sees to it that nobody becomes his own owner.
void setWindowOwner(WindowHandle window, WindowHandle owner);

} // namespace Nolvex::Platform
