// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SelfPaintedPanel.h"

#include "NolvexLibWx/platform/HoverWatch.h"

#include <wx/brush.h>
#include <wx/dc.h>

#include <utility>

// These calls skip wxWindow, which would write style sheets.
// NOLINTBEGIN(bugprone-parent-virtual-call)

namespace Nolvex {

Platform::SelfPaintedPanel::SelfPaintedPanel(wxWindow* parent, wxWindowID id, const wxPoint& pos,
                                             const wxSize& size, long style, const wxString& name)
    : wxPanel(parent, id, pos, size, style, name)
{}

Platform::SelfPaintedPanel::~SelfPaintedPanel() = default;

bool Platform::SelfPaintedPanel::SetFont(const wxFont& font)
{
    return wxWindowBase::SetFont(font);
}

bool Platform::SelfPaintedPanel::SetBackgroundColour(const wxColour& colour)
{
    if (!wxWindowBase::SetBackgroundColour(colour))
        return false;
    Refresh();
    return true;
}

bool Platform::SelfPaintedPanel::SetForegroundColour(const wxColour& colour)
{
    if (!wxWindowBase::SetForegroundColour(colour))
        return false;
    Refresh();
    return true;
}

bool Platform::SelfPaintedPanel::TryBefore(wxEvent& event)
{
    // The mouse cannot be over what has never been painted.
    if (event.GetEventType() == wxEVT_PAINT && !std::exchange(m_hoverWatched, true))
        watchHover(*this);
    return wxPanel::TryBefore(event);
}

// Overrides TryAfter instead of binding a handler, because binding takes time for each panel.
bool Platform::SelfPaintedPanel::TryAfter(wxEvent& event)
{
    // A panel without a background colour shows the window behind it.
    if (event.GetEventType() != wxEVT_ERASE_BACKGROUND || !UseBgCol())
        return wxPanel::TryAfter(event);
    wxDC& dc = *static_cast<wxEraseEvent&>(event).GetDC();
    dc.SetBackground(wxBrush(GetBackgroundColour()));
    dc.Clear();
    return true;
}

} // namespace Nolvex

// NOLINTEND(bugprone-parent-virtual-call)
