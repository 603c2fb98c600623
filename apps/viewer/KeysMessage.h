// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// Returns lines with the keys of all commands, from their table, and with those of the view and the lists.
String keysText();

/// Shows the keys in a message.
void showKeysMessage(wxWindow* owner);

} // namespace Nolvex::Viewer
