// SPDX-License-Identifier: MIT
#pragma once

/// Lets a GuiDisabler of the core library disable wxWidgets' top-level windows for as long as it lives.
/// Installed by the first `LibWx::startup` and removed by the last `shutdown`.
namespace Nolvex::WindowDisabling {

void install();
void uninstall();

} // namespace Nolvex::WindowDisabling
