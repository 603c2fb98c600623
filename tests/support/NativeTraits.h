// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Tests {

/// False where every process has a display, as on Windows.
bool displayMayBeMissing();

/// True when the toolkit was told which module it lives in, or does not want to know.
bool toolkitKnowsItsModule();

} // namespace Nolvex::Tests
