// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

#include <cstdint>

class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

/// The windows that a search by position includes besides those that are shown and enabled.
enum class FindWindowFlag : std::uint32_t
{
    INCLUDE_HIDDEN = 1,
    INCLUDE_DISABLED = 2,
};

/// Returns the deepest window of the tree, the root included, whose rectangle on the screen contains the
/// point. Of siblings that overlap, the first in the parent's list of children is returned. Returns null if
/// no window contains the point or `root` is null.
///
/// Hidden and disabled windows are skipped together with all their descendants, unless the flags include
/// them. A child is found also where it reaches beyond its parent, because only its own rectangle counts.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxWindow* findWindowByPosition(wxWindow* root, Pixel screenPoint,
                                                                Flags<FindWindowFlag> flags);

/// Returns the window of the tree, the root included, that has the native handle. Hidden windows are found
/// too. Returns null for a null handle.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxWindow* findWindowByNativeHandle(wxWindow* root, WindowHandle handle);

/// Searches the top-level windows of wxWidgets. Returns null for a null handle and for the handle of any
/// other window.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxTopLevelWindow* findTopLevelWxWindowForNativeHandle(WindowHandle handle);

/// Follows the parents of the window to the last, which has no parent and may be the window itself. Returns
/// null for null. A dialog's parent counts like a control's.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxWindow* topMostParent(wxWindow* window);

} // namespace Nolvex::Wx
