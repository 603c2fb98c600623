// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxControl;

namespace Nolvex {

/// The length of a check box's box, in design units.
inline constexpr int CHECK_BOX_LENGTH = 15;

/// Where a check box's label starts, in design units.
inline constexpr int CHECK_BOX_LABEL_X = 18;

/// The size in which box, label and the label's focus mark are seen whole.
wxSize checkBoxExtent(const wxControl& checkBox);

} // namespace Nolvex
