// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxControl;

namespace Nolvex {

/// Returns the size of a control's label in the control's font, every line and every "&" included.
wxSize labelExtent(const wxControl& control);

} // namespace Nolvex
