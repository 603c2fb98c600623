// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Platform {

/// Tells wxWidgets on Windows which module it is part of, because it loads its cursors and window classes
/// from there. Must be called before wxWidgets is initialised.
void announceToolkitModule();

} // namespace Nolvex::Platform
