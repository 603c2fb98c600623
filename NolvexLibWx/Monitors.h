// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLibWx/Export.h"

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

/// Any value but WORK_AREA means the full area.
enum class MonitorRegionType : int
{
    WORK_AREA = 0, ///< without task bars and the like
    FULL_AREA = 1,
};

/// The region, on the screen, of the monitor nearest to the point, which need not lie on any; at equal
/// distance the one the toolkit lists first. Empty, at the origin, when there is no monitor, as before the
/// toolkit's start.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getMonitorRegionByPoint(Pixel point, MonitorRegionType type);

/// Of the monitor nearest to the centre of the window; empty without a window.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getMonitorRegionByWindow(wxWindow* window, MonitorRegionType type);

/// Moves the window's corner to the point, or as near as it gets with the window inside the work area of the
/// monitor nearest to the point. A window larger than the work area starts at its left or top edge. For
/// top-level windows and popups, whose positions are those of the screen.
NOLVEXLIBWX_EXPORT void smartPositionWindow(wxWindow* window, Pixel topLeft);

namespace Detail {

// The arithmetic alone, for any arrangement of monitors.

/// The index of the rectangle nearest to the point, the first of those equally near; -1 when there is none.
[[nodiscard]] NOLVEXLIBWX_EXPORT int nearestMonitor(ArrayView<const wxRect> geometries, Pixel point);

/// Where a window of the size goes that was asked to go to the point.
[[nodiscard]] NOLVEXLIBWX_EXPORT Pixel positionInWorkArea(const wxRect& workArea, wxSize size, Pixel topLeft);

} // namespace Detail

} // namespace Nolvex::Wx
