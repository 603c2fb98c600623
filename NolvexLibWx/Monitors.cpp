// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Monitors.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/detail/Displays.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"

#include <wx/display.h>
#include <wx/window.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Nolvex {

namespace {

int nearestDisplay(Pixel point)
{
    Array<wxRect> geometries;
    for (const Bucket& display : Wx::Detail::displayGeometries())
        geometries.push_back(Wx::toWxRect(display));
    return Wx::Detail::nearestMonitor(geometries, point);
}

wxRect monitorRect(Pixel point, Wx::MonitorRegionType type)
{
    const int index = nearestDisplay(point);
    // wxDisplay asserts if the display does not exist, and then returns this.
    if (index < 0)
        return {};
    const wxDisplay display(static_cast<unsigned>(index));
    return type == Wx::MonitorRegionType::WORK_AREA ? display.GetClientArea() : display.GetGeometry();
}

/// Limits one coordinate. Computes in 64 bits, because the sums may exceed 32.
std::int32_t clampedStart(std::int64_t areaStart, std::int64_t areaLength, std::int64_t length,
                          std::int64_t start)
{
    const std::int64_t last = std::max(areaStart, areaStart + areaLength - length);
    return static_cast<std::int32_t>(std::max(areaStart, std::min(last, start)));
}

void moveTo(wxWindow& window, Pixel position)
{
    // Left of or above the first monitor -1 is a valid coordinate, and must not mean "unchanged" to
    // wxWidgets.
    window.Move(Wx::toWxPoint(position), wxSIZE_USE_EXISTING | wxSIZE_ALLOW_MINUS_ONE);
}

/// Returns whether wxWidgets takes the window to be at the position although the window is elsewhere, and
/// would therefore ignore a move to the position. On GTK, wxWidgets may ask for the place of a new window
/// before the window manager has placed the window, and is not told when that has happened.
bool isMisplacedAt(wxWindow& window, Pixel position)
{
    return window.IsTopLevel() && Wx::toPixel(window.GetPosition()) == position &&
           Wx::getScreenRegion(Wx::getWindowNativeHandle(&window)).min != position;
}

} // namespace

int Wx::Detail::nearestMonitor(ArrayView<const wxRect> geometries, Pixel point)
{
    const Vector2 position{static_cast<float>(point.x), static_cast<float>(point.y)};
    float nearest = std::numeric_limits<float>::infinity();
    int result = -1;
    for (std::size_t index = 0; index < geometries.size(); ++index) {
        const float distance = toBoundingBox2(geometries[index]).squaredDistance(position);
        if (distance < nearest) {
            nearest = distance;
            result = static_cast<int>(index);
        }
    }
    return result;
}

Bucket Wx::Detail::regionAround(ArrayView<const Bucket> regions)
{
    if (regions.empty())
        return {};
    Bucket whole = regions.front();
    for (const Bucket& region : regions) {
        whole.min = {std::min(whole.min.x, region.min.x), std::min(whole.min.y, region.min.y)};
        whole.max = {std::max(whole.max.x, region.max.x), std::max(whole.max.y, region.max.y)};
    }
    return whole;
}

Pixel Wx::Detail::positionInWorkArea(const wxRect& workArea, wxSize size, Pixel topLeft)
{
    return {clampedStart(workArea.x, workArea.width, size.x, topLeft.x),
            clampedStart(workArea.y, workArea.height, size.y, topLeft.y)};
}

Bucket Wx::getMonitorRegionByPoint(Pixel point, MonitorRegionType type)
{
    return toBucket(monitorRect(point, type));
}

Bucket Wx::getMonitorRegionByWindow(wxWindow* window, MonitorRegionType type)
{
    if (window == nullptr)
        return {};
    return getMonitorRegionByPoint(getRectCenter(Detail::screenRect(*window)), type);
}

Bucket Wx::getDesktopRegion()
{
    return Detail::regionAround(Detail::displayGeometries());
}

void Wx::smartPositionWindow(wxWindow* window, Pixel topLeft)
{
    if (window == nullptr)
        return;
    const wxRect workArea = monitorRect(topLeft, MonitorRegionType::WORK_AREA);
    const Pixel position = Detail::positionInWorkArea(workArea, window->GetSize(), topLeft);
    if (isMisplacedAt(*window, position))
        moveTo(*window, position + Pixel{1, 1});
    moveTo(*window, position);
}

} // namespace Nolvex
