// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class wxWindow;

namespace Nolvex::Tests {

enum class PinchEnd
{
    LIFTED,    ///< the user has lifted the fingers
    CANCELLED, ///< the system has taken the gesture away
};

/// Lets the window receive the events of a pinch on a touch pad as the system sends them. `scales` are the
/// distances of the fingers as multiples of their distance at the beginning. Returns false on a system that
/// has no such events.
bool pinchTouchPad(wxWindow* window, const std::vector<double>& scales, PinchEnd end = PinchEnd::LIFTED);

} // namespace Nolvex::Tests
