// SPDX-License-Identifier: MIT
#pragma once

/// What a GuiDisabler of the core library does in a program with this library: the toolkit's top-level
/// windows are disabled while one lives. Installed by the first `LibWx::startup`, removed by the last
/// `shutdown`.
namespace Nolvex::WindowDisabling {

void install();
void uninstall();

} // namespace Nolvex::WindowDisabling
