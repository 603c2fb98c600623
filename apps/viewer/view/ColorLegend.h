// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/DisplaySettings.h"

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Viewer {

/// Returns the place of the legend of false colour in the bottom right corner of an area.
wxRect legendRect(const wxRect& area);

/// Draws the legend of false colour: all colours from the lowest to the highest value, and below them the
/// values at the ends and in the middle. The DC must be one that is painted on.
void drawLegend(wxDC& dc, const DisplaySettings& settings, const wxRect& rect);

} // namespace Nolvex::Viewer
