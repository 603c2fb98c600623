// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxControl;

namespace Nolvex {

/// The room that a control's label takes when it is painted as it stands, "&" and all, in the control's font.
wxSize labelExtent(const wxControl& control);

} // namespace Nolvex
