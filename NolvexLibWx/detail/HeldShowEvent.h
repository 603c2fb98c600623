// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class wxEvent;
class wxWindow;

namespace Nolvex::Wx::Detail {

enum class ShowEventTime
{
    NOW,
    LATER, ///< from the event loop
};

/// Shows or hides the window by the function, usually the Show of its base class, and sends wxEVT_SHOW
/// afterwards, if the function has returned true. Returns the result of the function.
///
/// wxWidgets sends the event in the middle of its own Show and goes on to use the window, which a handler may
/// destroy. `holdsEvent` is true while the function runs; the window's TryBefore must then return true for
/// the event of wxWidgets (isHeldShowEvent).
bool showAndHoldEvent(wxWindow& window, bool show, bool& holdsEvent,
                      const std::function<bool(bool)>& showBase, ShowEventTime time = ShowEventTime::NOW);

/// Returns whether wxWidgets has sent the event too early.
bool isHeldShowEvent(const wxWindow& window, bool holdsEvent, const wxEvent& event);

} // namespace Nolvex::Wx::Detail
