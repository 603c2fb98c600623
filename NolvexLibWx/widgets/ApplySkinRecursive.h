// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

struct GuiSkin;

/// Gives the window and all its descendants, parents first, the skin's background and text colours, and every
/// TextButton among them the link colour, also for hovering. The skins that controls have copied stay as they
/// are: a button takes its colours from its own copy when its state changes next. A null window is ignored.
NOLVEXLIBWX_EXPORT void applySkinRecursive(wxWindow* window, const GuiSkin& skin);

} // namespace Nolvex::Wx
