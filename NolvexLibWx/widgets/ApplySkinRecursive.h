// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

struct GuiSkin;

/// Gives the window and all its descendants, parents first, the skin's background and text colours, and every
/// TextButton the link colour, also while hovered. Sets nothing else: the skins that controls copied stay,
/// and a button takes its colours from its own copy at its next change of state.
NOLVEXLIBWX_EXPORT void applySkinRecursive(wxWindow* window, const GuiSkin& skin);

} // namespace Nolvex::Wx
