// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

// Handles may name windows of others in the process, the host's for instance. A null handle and one whose
// window is gone or going are allowed everywhere.

/// Null for null.
[[nodiscard]] NOLVEXLIBWX_EXPORT WindowHandle getWindowNativeHandle(const wxWindow* window);

/// The native window's rectangle on the screen, a top-level window's with its frame. Empty, at the origin,
/// for no window. On GTK a window that has never been shown has none either, and one that is hidden has lost
/// its frame.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getScreenRegion(WindowHandle window);

/// The window that `window` stays in front of and is minimised with; null when there is none or `window` is
/// no window. On GTK the one it is transient for, null for a widget that is no window; on Windows a child
/// window's owner is its parent.
[[nodiscard]] NOLVEXLIBWX_EXPORT WindowHandle getOwnerAsNativeHandle(WindowHandle window);

/// Gives `window` another owner, or none for null, whatever parents the toolkit knows; returns `window`.
/// Nothing changes when either is no window any more, nor when `owner` is `window` or owned by it, however
/// indirectly. Both are meant to be top-level windows: on GTK nothing changes for a widget inside one; on
/// Windows handles of child windows go to the system as they are, and a child given an owner is moved into
/// it, out of its parent. There, a destroyed owner takes along what it owns.
NOLVEXLIBWX_EXPORT WindowHandle setOwnerFromNativeHandle(WindowHandle window, WindowHandle owner);

} // namespace Nolvex::Wx
