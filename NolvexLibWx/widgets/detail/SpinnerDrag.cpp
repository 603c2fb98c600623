// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/SpinnerDrag.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"

#include <wx/utils.h>
#include <wx/window.h>

#include <cstdlib>
#include <utility>

namespace Nolvex {

void Wx::Detail::SpinnerDrag::begin(const wxWindow& arrow, const wxPoint& position)
{
    m_lastScreenPosition = arrow.ClientToScreen(position);
    m_wrap.reset();
}

bool Wx::Detail::SpinnerDrag::isMotion(const wxWindow& arrow, const wxPoint& position)
{
    const wxPoint now = arrow.ClientToScreen(position);
    return std::exchange(m_lastScreenPosition, now) != now;
}

Optional<int> Wx::Detail::SpinnerDrag::move(wxWindow& spinner, const wxWindow& arrow, const wxPoint& position)
{
    if (isOutdated(arrow.ClientToScreen(position)))
        return {};
    const int distance = position.y - std::exchange(m_lastY, position.y);
    m_wrap = wrap(spinner, distance);
    if (!m_wrap)
        return distance;
    m_lastScreenPosition = m_wrap->to;
    m_lastY = screenToClient(arrow, m_wrap->to).y;
    return -distance;
}

// X11 may deliver motions that happened before the pointer was moved. Each of them would change the value by
// the height of the monitor, and the next motion would change the value back, unless a bound lies between.
bool Wx::Detail::SpinnerDrag::isOutdated(const wxPoint& now)
{
    if (!m_wrap)
        return false;
    const bool isNearOldEdge = std::abs(now.y - m_wrap->from.y) < std::abs(now.y - m_wrap->to.y);
    if (!isNearOldEdge || wxGetMousePosition().y == now.y) {
        m_wrap.reset();
        return false;
    }
    m_lastScreenPosition = m_wrap->to;
    return true;
}

Optional<Wx::Detail::SpinnerDrag::Wrap> Wx::Detail::SpinnerDrag::wrap(wxWindow& spinner, int distance)
{
    const wxPoint mouse = wxGetMousePosition();
    const Bucket monitor = getMonitorRegionByPoint(toPixel(mouse), MonitorRegionType::FULL_AREA);
    wxPoint target = mouse;
    if (mouse.y == monitor.min.y && distance < 0)
        target.y = monitor.max.y - 2;
    else if (mouse.y == monitor.max.y - 1 && distance > 0)
        target.y = monitor.min.y + 1;
    else
        return {};
    const wxPoint place = screenToClient(spinner, target);
    spinner.WarpPointer(place.x, place.y);
    if (wxGetMousePosition().y != target.y)
        return {};
    return Wrap{mouse, target};
}

} // namespace Nolvex
