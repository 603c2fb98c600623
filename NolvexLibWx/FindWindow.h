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

/// What a search by position looks at besides windows that are shown and enabled.
enum class FindWindowFlag : std::uint32_t
{
    INCLUDE_HIDDEN = 1,
    INCLUDE_DISABLED = 2,
};

/// The deepest window of the tree, the root included, whose rectangle on the screen contains the point; null
/// when there is none or `root` is null. Of siblings that overlap, the one first in its parent's list of
/// children.
///
/// Hidden windows and disabled ones are passed over together with all they contain, unless the flags include
/// them. A child may reach beyond its parent: each window's own rectangle counts.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxWindow* findWindowByPosition(wxWindow* root, Pixel screenPoint,
                                                                Flags<FindWindowFlag> flags);

/// The window of the tree, the root included, that has the native handle, hidden or not; null for a null
/// handle.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxWindow* findWindowByNativeHandle(wxWindow* root, WindowHandle handle);

/// Among the toolkit's top-level windows; null for a null handle and for windows that are not the toolkit's.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxTopLevelWindow* findTopLevelWxWindowForNativeHandle(WindowHandle handle);

/// The window without parent at the end of the line of parents, which may be the window itself; null for
/// null. A dialog's parent counts like a control's.
[[nodiscard]] NOLVEXLIBWX_EXPORT wxWindow* topMostParent(wxWindow* window);

} // namespace Nolvex::Wx
