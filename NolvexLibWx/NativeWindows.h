// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

// A handle may name any window of the process, such as a window of the host. Null handles and handles of
// windows that have been destroyed, or are being destroyed, are allowed everywhere.

/// Returns a null handle for null.
[[nodiscard]] NOLVEXLIBWX_EXPORT WindowHandle getWindowNativeHandle(const wxWindow* window);

/// Returns the native window's rectangle on the screen, which includes the frame of a top-level window. The
/// region is empty, at the origin, if there is no such window. On GTK the region is also empty before the
/// window is first shown, and has no frame while the window is hidden.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getScreenRegion(WindowHandle window);

/// Returns the window that `window` stays in front of and is minimised with. Returns null if `window` has no
/// owner or is no window. On GTK the owner is the window that `window` is transient for, and a widget inside
/// a window has none. On Windows the owner of a child window is its parent.
[[nodiscard]] NOLVEXLIBWX_EXPORT WindowHandle getOwnerAsNativeHandle(WindowHandle window);

/// Makes `owner` the owner of `window`, or removes the owner if `owner` is null, and returns `window`. The
/// parents of wxWidgets do not matter. Nothing changes if either window has been destroyed, or if `owner` is
/// `window` itself or is owned by it, directly or indirectly. Both should be top-level windows: GTK ignores a
/// widget inside a window, and Windows moves a child window out of its parent into the owner. When Windows
/// destroys an owner, it destroys the owned windows, too.
NOLVEXLIBWX_EXPORT WindowHandle setOwnerFromNativeHandle(WindowHandle window, WindowHandle owner);

} // namespace Nolvex::Wx
