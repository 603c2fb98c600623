// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxControl;

namespace Nolvex {

/// The width and height of the box that holds the check mark, in design units.
inline constexpr int CHECK_BOX_LENGTH = 15;

/// The distance of the label from the left edge of the check box, in design units.
inline constexpr int CHECK_BOX_LABEL_X = 18;

/// Returns the smallest size that shows the box, the label and the focus mark around the label whole.
wxSize checkBoxExtent(const wxControl& checkBox);

} // namespace Nolvex
