// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

struct GuiSkin;

/// Sets the background and text colours of the window and of all its descendants, parents first. A TextButton
/// gets the link colour as normal and as hover colour. The skins that controls have copied do not change, so
/// that a button returns to the colours of its own skin when its state changes. A null window is ignored.
NOLVEXLIBWX_EXPORT void applySkinRecursive(wxWindow* window, const GuiSkin& skin);

} // namespace Nolvex::Wx
