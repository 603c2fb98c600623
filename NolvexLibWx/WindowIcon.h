// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxBitmap;
class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Wx {

// Both do nothing without a window.

/// The picture in the window's title and in the task bar. An invalid bitmap takes the icon away.
NOLVEXLIBWX_EXPORT void setIcon(wxTopLevelWindow* window, const wxBitmap& bitmap);

/// The library's own application icon.
NOLVEXLIBWX_EXPORT void setZephraIcon(wxTopLevelWindow* window);

} // namespace Nolvex::Wx
