// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SelfPaintedPanel.h"

#include "NolvexLibWx/platform/gtk/InsensitiveWatch.h"

#include <wx/brush.h>
#include <wx/dc.h>

#include <utility>

// wxWindow, which is passed over, is what writes the style sheets.
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

void Platform::SelfPaintedPanel::DoEnable(bool enable)
{
    m_isDisabledLater = !enable && HasCapture();
    if (!m_isDisabledLater)
        wxPanel::DoEnable(enable);
}

void Platform::SelfPaintedPanel::OnInternalIdle()
{
    wxPanel::OnInternalIdle();
    if (m_isDisabledLater && !HasCapture())
        DoEnable(false);
}

bool Platform::SelfPaintedPanel::TryBefore(wxEvent& event)
{
    const bool concernsMouse =
        event.GetEventType() == wxEVT_ENTER_WINDOW || event.GetEventType() == wxEVT_LEFT_DOWN;
    if (concernsMouse && !std::exchange(m_isWatched, true))
        watchSensitivity(*this);
    return wxPanel::TryBefore(event);
}

// A handler would do as well, but binding one for each takes time.
bool Platform::SelfPaintedPanel::TryAfter(wxEvent& event)
{
    // Without a colour of its own it shows what lies behind it.
    if (event.GetEventType() != wxEVT_ERASE_BACKGROUND || !UseBgCol())
        return wxPanel::TryAfter(event);
    wxDC& dc = *static_cast<wxEraseEvent&>(event).GetDC();
    dc.SetBackground(wxBrush(GetBackgroundColour()));
    dc.Clear();
    return true;
}

} // namespace Nolvex

// NOLINTEND(bugprone-parent-virtual-call)
