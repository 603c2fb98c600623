// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"

#include <wx/string.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Tests {

/// Returns a sentence for each visible window below `root` whose text needs more room than the window has, or
/// that reaches beyond its parent. A text field may show a part of its text, and a window that scrolls a part
/// of its content.
Array<wxString> misfitsIn(const wxWindow& root);

} // namespace Nolvex::Tests
