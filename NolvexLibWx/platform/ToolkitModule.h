// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Platform {

/// Tells the toolkit which module it lives in, where it wants to know: it loads its cursors and window
/// classes from there. Called before the toolkit is initialised.
void announceToolkitModule();

} // namespace Nolvex::Platform
