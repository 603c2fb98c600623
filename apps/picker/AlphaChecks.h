// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxDC;
class WXDLLIMPEXP_FWD_CORE wxRect;

namespace Nolvex::Picker {

/// Fills the rectangle with the colour. A colour that is not opaque is blended with a pattern of light and
/// dark squares, which has its origin at the origin of the DC.
void fillOverChecks(wxDC& dc, const wxRect& rect, const Rgb& color);

} // namespace Nolvex::Picker
