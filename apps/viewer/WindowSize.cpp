// SPDX-License-Identifier: MIT
#include "apps/viewer/WindowSize.h"

#include "NolvexLibWx/DpiScaling.h"

#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>

namespace Nolvex::Viewer {

namespace {

constexpr int BORDER = 2;
const wxSize MIN_SIZE(360, 300);

} // namespace

wxSize clientSizeFor(const wxSize& picture, int heightAbove)
{
    const int around = 2 * (Wx::scaleByDpi(MARGIN) + BORDER);
    const wxSize frame(around, around + heightAbove);
    wxSize size = picture + frame;
    size.IncTo(Wx::scaleByDpi(MIN_SIZE));
    size.DecTo(wxDisplay(0u).GetClientArea().GetSize() * 4 / 5);
    return size;
}

void makeRoomFor(wxWindow& panel, wxTopLevelWindow& window)
{
    const wxSize least = panel.GetSizer()->CalcMin();
    window.SetMinClientSize(least);
    wxSize size = window.GetClientSize();
    size.IncTo(least);
    if (size != window.GetClientSize())
        window.SetClientSize(size);
    panel.Layout();
}

} // namespace Nolvex::Viewer
