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

/// Lets the window receive the events of two fingers that touch a screen in the window, with this distance in
/// pixels at first, and move until they have the other distance. Returns false as pinchTouchPad does.
bool pinchTouchScreen(wxWindow* window, int distance, int lastDistance);

} // namespace Nolvex::Tests
