// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownFrame.h"

#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "NolvexLibWx/platform/PopupPlacement.h"
#include "NolvexLibWx/widgets/detail/ModalDialogWatch.h"

#include <wx/event.h>

namespace Nolvex {

Wx::DropdownFrame::DropdownFrame(wxWindow* owner, wxBorder border, const wxString& name)
    : Platform::PopupFrame(owner, border | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR, name),
      m_owner(owner),
      m_modalDialogs(std::make_unique<ModalDialogWatch>([this] { Hide(); }))
{
    // By default wxFrame would destroy itself, and its owner counts on opening the frame again.
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Hide(); });
}

Wx::DropdownFrame::~DropdownFrame() = default;

void Wx::DropdownFrame::open()
{
    if (!isOwnerUsable())
        return;
    moveBesideOwner();
    Raise();
    Show();
}

bool Wx::DropdownFrame::Show(bool show)
{
    const wxWeakRef<DropdownFrame> self(this);
    const bool changed = PopupFrame::Show(show);
    // A handler of wxEVT_SHOW may have destroyed the frame.
    if (self && changed && m_owner)
        m_owner->Refresh();
    return changed;
}

// Neither wxWidgets nor the systems tell a window that a parent is hidden or disabled, so an open frame asks
// after each round of events. The frame is hidden later, because a handler of wxEVT_SHOW may destroy the
// frame, and wxWidgets still needs it after this function.
void Wx::DropdownFrame::OnInternalIdle()
{
    PopupFrame::OnInternalIdle();
    if (!IsShown())
        return;
    if (isOwnerUsable())
        moveBesideOwner();
    else
        CallAfter(&DropdownFrame::hideUnlessUsable);
}

void Wx::DropdownFrame::hideUnlessUsable()
{
    if (!isOwnerUsable())
        Hide();
}

bool Wx::DropdownFrame::isOwnerUsable() const
{
    if (!m_owner || m_owner->IsBeingDeleted() || !m_owner->IsShownOnScreen())
        return false;
    const wxWindow* const parent = m_owner->GetParent();
    const auto* const topLevel = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(m_owner));
    return (parent == nullptr || parent->IsEnabled()) && (topLevel == nullptr || !topLevel->IsIconized());
}

void Wx::DropdownFrame::moveBesideOwner()
{
    if (Platform::placeBeside(*this, *m_owner))
        return;
    const wxRect owner = Detail::screenRect(*m_owner);
    const Bucket monitor = getMonitorRegionByWindow(m_owner, MonitorRegionType::WORK_AREA);
    const int height = GetSize().y;
    const int below = owner.GetBottom() + 1;
    const bool isAbove = below + height > monitor.max.y && owner.y - height >= monitor.min.y;
    // A coordinate of -1 is valid on a monitor to the left or above.
    Move(owner.x, isAbove ? owner.y - height : below, wxSIZE_ALLOW_MINUS_ONE);
}

} // namespace Nolvex
