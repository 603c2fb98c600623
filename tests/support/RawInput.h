// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

namespace Nolvex::Tests {

// These functions make real input as those in Gestures.h do, but process no events. On GTK
// wxUIActionSimulator processes events, so that a drag or a modal dialog would run inside the simulator until
// its end.

void placeMouse(const wxPoint& screenPosition);

/// Presses the left button.
void holdMouse();

/// Releases the left button.
void dropMouse();

void tapEscape();

} // namespace Nolvex::Tests
