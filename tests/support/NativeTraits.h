// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Tests {

/// False where every process has a display, as on Windows.
bool displayMayBeMissing();

} // namespace Nolvex::Tests
