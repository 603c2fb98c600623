// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Tests {

/// False where every process has a display, as on Windows.
bool displayMayBeMissing();

/// True when the toolkit was told which module it lives in, or does not want to know.
bool toolkitKnowsItsModule();

/// The depth that a bitmap has which the toolkit was asked to make with this one, below 24 bits: GTK knows
/// one bit and 24 only.
int depthOfBitmap(int asked);

} // namespace Nolvex::Tests
