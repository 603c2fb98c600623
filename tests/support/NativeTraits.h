// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Tests {

/// Returns false on Windows, where every process has a display.
bool displayMayBeMissing();

/// Returns whether wxWidgets knows the module that contains it. Only wxMSW needs to know.
bool toolkitKnowsItsModule();

/// Returns the depth that a bitmap gets when wxWidgets is asked for this depth below 24 bits. GTK has the
/// depths 1 and 24 only.
int depthOfBitmap(int asked);

/// Returns whether the task bar is reached over the session bus. Windows has no bus.
bool taskbarNeedsSessionBus();

/// Returns false on Windows, where every thread shows its own dialogs.
bool needsMainThreadForDialogs();

} // namespace Nolvex::Tests
