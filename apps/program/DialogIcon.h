// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Program {

/// Gives the frames of all further message dialogs the icon of the window.
void useIconInDialogs(const wxTopLevelWindow& window);

} // namespace Nolvex::Program
