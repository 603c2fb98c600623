// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SelfPaintedPanel.h"

#include <wx/brush.h>
#include <wx/dc.h>

// wxWindow, which is passed over, is what writes the style sheets.
// NOLINTBEGIN(bugprone-parent-virtual-call)

namespace Nolvex {

Platform::SelfPaintedPanel::SelfPaintedPanel(wxWindow* parent, wxWindowID id, const wxPoint& pos,
                                             const wxSize& size, long style, const wxString& name)
    : wxPanel(parent, id, pos, size, style, name)
{
    Bind(wxEVT_ERASE_BACKGROUND, &SelfPaintedPanel::onErase, this);
}

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

void Platform::SelfPaintedPanel::onErase(wxEraseEvent& event)
{
    // Without a colour of its own it shows what lies behind it.
    if (!UseBgCol()) {
        event.Skip();
        return;
    }
    event.GetDC()->SetBackground(wxBrush(GetBackgroundColour()));
    event.GetDC()->Clear();
}

} // namespace Nolvex

// NOLINTEND(bugprone-parent-virtual-call)
