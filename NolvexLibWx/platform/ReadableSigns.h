// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxDC;
class WXDLLIMPEXP_FWD_CORE wxGraphicsContext;

namespace Nolvex::Platform {

/// Lets a graphics context of the DC paint signs, which must stay readable, between the columns `left` and
/// `left + width` of the DC in a layout from right to left. wxDC mirrors the places of signs there and not
/// the signs themselves. On GTK the context mirrors both, and on Windows neither.
void turnToReadableSigns(wxGraphicsContext& context, const wxDC& dc, int left, int width);

} // namespace Nolvex::Platform
