// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/HeldShowEvent.h"

#include <wx/event.h>
#include <wx/window.h>

namespace Nolvex::Wx::Detail {

bool showAndHoldEvent(wxWindow& window, bool show, bool& holdsEvent,
                      const std::function<bool(bool)>& showBase, ShowEventTime time)
{
    holdsEvent = true;
    const bool changed = showBase(show);
    holdsEvent = false;
    if (changed) {
        wxShowEvent event(window.GetId(), show);
        event.SetEventObject(&window);
        if (time == ShowEventTime::LATER)
            window.GetEventHandler()->AddPendingEvent(event);
        else
            window.HandleWindowEvent(event);
    }
    return changed;
}

bool isHeldShowEvent(const wxWindow& window, bool holdsEvent, const wxEvent& event)
{
    return holdsEvent && event.GetEventType() == wxEVT_SHOW && event.GetEventObject() == &window;
}

} // namespace Nolvex::Wx::Detail
