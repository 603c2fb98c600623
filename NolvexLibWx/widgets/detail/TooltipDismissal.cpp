// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/TooltipDismissal.h"

#include "NolvexLibWx/widgets/Tooltip.h"
#include "NolvexLibWx/widgets/detail/ModalDialogWatch.h"

#include <wx/event.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <algorithm>

namespace Nolvex {

namespace {

bool turnsToSomethingElse(const wxEvent& event)
{
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_KEY_DOWN || type == wxEVT_CHAR_HOOK || type == wxEVT_MENU_OPEN)
        return true;
    const auto* const mouse = dynamic_cast<const wxMouseEvent*>(&event);
    return mouse != nullptr && (mouse->ButtonDown() || mouse->ButtonDClick());
}

} // namespace

Wx::TooltipDismissal::TooltipDismissal() = default;
Wx::TooltipDismissal::~TooltipDismissal() = default;

Wx::TooltipDismissal& Wx::TooltipDismissal::instance()
{
    // Lives to the end of the process: an event that is being filtered may destroy the last tooltip.
    static TooltipDismissal dismissal;
    return dismissal;
}

void Wx::TooltipDismissal::add(Tooltip* tooltip)
{
    if (m_tooltips.empty()) {
        wxEvtHandler::AddFilter(this);
        m_modalDialogs = std::make_unique<ModalDialogWatch>([this] { dismissAll(); });
    }
    m_tooltips.push_back(tooltip);
}

void Wx::TooltipDismissal::remove(Tooltip* tooltip)
{
    std::erase(m_tooltips, tooltip);
    if (m_tooltips.empty()) {
        wxEvtHandler::RemoveFilter(this);
        m_modalDialogs.reset();
    }
}

int Wx::TooltipDismissal::FilterEvent(wxEvent& event)
{
    if (!turnsToSomethingElse(event))
        return Event_Skip;
    auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
    const wxWeakRef<wxWindow> receiver(window);
    dismissAll();
    // No handlers can be looked for in a window that a handler of the hiding has destroyed.
    return window != nullptr && !receiver ? Event_Processed : Event_Skip;
}

void Wx::TooltipDismissal::dismissAll()
{
    // A copy, as a handler that hears of the hiding may destroy tooltips.
    Array<wxWeakRef<Tooltip>> tooltips;
    for (Tooltip* const tooltip : m_tooltips)
        tooltips.emplace_back(tooltip);
    for (const wxWeakRef<Tooltip>& tooltip : tooltips) {
        if (tooltip)
            tooltip->hide();
    }
}

} // namespace Nolvex
