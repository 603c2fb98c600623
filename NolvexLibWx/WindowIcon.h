// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxBitmap;
class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Wx {

// Both functions do nothing if `window` is null.

/// Sets the icon in the window's title and in the task bar. An invalid bitmap removes the icon.
NOLVEXLIBWX_EXPORT void setIcon(wxTopLevelWindow* window, const wxBitmap& bitmap);

/// Sets the application icon of the library.
NOLVEXLIBWX_EXPORT void setZephraIcon(wxTopLevelWindow* window);

} // namespace Nolvex::Wx
