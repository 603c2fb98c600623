// SPDX-License-Identifier: MIT
#include "apps/viewer/WindowSize.h"

#include "NolvexLibWx/DpiScaling.h"

#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>

#include <algorithm>

namespace Nolvex::Viewer {

namespace {

constexpr int BORDER = 2;
const wxSize MIN_SIZE(360, 300);

} // namespace

wxRect screenOf(const wxTopLevelWindow& window)
{
    const int display = wxDisplay::GetFromWindow(&window);
    return wxDisplay(display == wxNOT_FOUND ? 0u : static_cast<unsigned>(display)).GetClientArea();
}

wxSize withinBounds(wxSize size, const wxRect& screen)
{
    size.IncTo(Wx::scaleByDpi(MIN_SIZE));
    size.DecTo(screen.GetSize() * 4 / 5);
    return size;
}

wxSize clientSizeFor(const wxSize& picture, int heightAbove)
{
    const int around = 2 * (Wx::scaleByDpi(MARGIN) + BORDER);
    return withinBounds(picture + wxSize(around, around + heightAbove), wxDisplay(0u).GetClientArea());
}

void makeRoomFor(wxWindow& panel, wxTopLevelWindow& window)
{
    const wxSize least = panel.GetSizer()->CalcMin();
    window.SetMinClientSize(least);
    wxSize size = window.GetClientSize();
    size.IncTo(least);
    if (size != window.GetClientSize())
        window.SetClientSize(size);
    // The window may get events of older, smaller sizes before it has this one, and the scroll bars of GTK
    // cannot be made smaller than they are: the controls are never laid out in less than they need.
    panel.SetVirtualSize(least);
    panel.Layout();
}

void widen(wxTopLevelWindow& window, int pixels)
{
    if (pixels == 0 || window.IsMaximized() || window.IsFullScreen())
        return;
    const wxRect screen = screenOf(window);
    wxRect place = window.GetRect();
    const int widest = std::max(place.width, screen.width);
    place.width = std::clamp(place.width + pixels, window.GetMinSize().x, widest);
    if (place.GetRight() > screen.GetRight())
        place.x = std::max(screen.x, screen.GetRight() + 1 - place.width);
    // A window that has never been shown has no place yet.
    if (window.IsShown())
        window.SetSize(place);
    else
        window.SetClientSize(window.GetClientSize() + wxSize(place.width - window.GetSize().x, 0));
}

} // namespace Nolvex::Viewer
