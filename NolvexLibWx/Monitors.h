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

/// Returns the region, on the screen, of the monitor nearest to the point, which may lie outside of every
/// monitor. Of monitors at the same distance, the first in the list of wxWidgets counts. The region is empty,
/// at the origin, if there is no monitor or wxWidgets has not been started.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getMonitorRegionByPoint(Pixel point, MonitorRegionType type);

/// Returns the region of the monitor nearest to the centre of the window, or an empty region for null.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getMonitorRegionByWindow(wxWindow* window, MonitorRegionType type);

/// Returns the smallest region, on the screen, that holds all monitors. The region is empty, at the origin,
/// if there is no monitor or wxWidgets has not been started.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket getDesktopRegion();

/// Moves the window's top left corner to the point, or as near to the point as the work area of the nearest
/// monitor allows. A window larger than the work area starts at its left or top edge. `window` is a top-level
/// window or a popup, whose position is given in screen coordinates. On Wayland, top-level windows stay where
/// they are.
NOLVEXLIBWX_EXPORT void smartPositionWindow(wxWindow* window, Pixel topLeft);

namespace Detail {

// The calculations behind the functions above, for any arrangement of monitors.

/// Returns the index of the rectangle nearest to the point, the lowest of several, or -1 if there is none.
[[nodiscard]] NOLVEXLIBWX_EXPORT int nearestMonitor(ArrayView<const wxRect> geometries, Pixel point);

/// Returns the smallest region that holds all of the regions. The region around nothing is empty.
[[nodiscard]] NOLVEXLIBWX_EXPORT Bucket regionAround(ArrayView<const Bucket> regions);

/// Returns the corner of a window of the given size that should have its corner at `topLeft`.
[[nodiscard]] NOLVEXLIBWX_EXPORT Pixel positionInWorkArea(const wxRect& workArea, wxSize size, Pixel topLeft);

} // namespace Detail

} // namespace Nolvex::Wx
