// SPDX-License-Identifier: MIT
#pragma once

/// Lets a GuiDisabler of the core library disable wxWidgets' top-level windows for as long as it lives, and
/// give the focus back to the window that had it. Installed by the first `LibWx::startup` and removed by the
/// last `shutdown`.
namespace Nolvex::WindowDisabling {

void install();
void uninstall();

} // namespace Nolvex::WindowDisabling
