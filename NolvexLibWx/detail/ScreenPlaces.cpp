// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ScreenPlaces.h"

#include <wx/window.h>

#include <algorithm>

namespace Nolvex::Wx {

wxRect Detail::clientRectOnScreen(const wxWindow& window)
{
    const wxSize size = window.GetClientSize();
    const wxPoint origin = window.ClientToScreen(wxPoint(0, 0));
    const int opposite = window.ClientToScreen(wxPoint(size.x, 0)).x;
    return {wxPoint(std::min(origin.x, opposite), origin.y), size};
}

wxRect Detail::screenRect(const wxWindow& window)
{
    wxRect rect = window.GetScreenRect();
    if (!window.IsTopLevel() && window.GetLayoutDirection() == wxLayout_RightToLeft)
        rect.x = std::min(rect.x, clientRectOnScreen(window).x);
    return rect;
}

wxPoint Detail::screenToClient(const wxWindow& window, const wxPoint& position)
{
    const wxPoint origin = window.ClientToScreen(wxPoint(0, 0));
    const int step = window.ClientToScreen(wxPoint(1, 0)).x - origin.x;
    return {(position.x - origin.x) * step, position.y - origin.y};
}

} // namespace Nolvex::Wx
