// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Tests {

/// Presses and releases the Enter key of the numeric keypad. wxUIActionSimulator cannot do so on Windows.
void pressKeypadEnter();

} // namespace Nolvex::Tests
