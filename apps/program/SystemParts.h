// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Wx {

struct GuiSkin;

} // namespace Nolvex::Wx

namespace Nolvex::Program {

/// Asks the system to draw its own parts of all windows of the program dark if the skin is dark: on Linux
/// everything that GTK paints, such as menus, scroll bars and file dialogs, on Windows the title bars. For a
/// light skin, and for a user who needs high contrast, these parts look as the user has chosen for the whole
/// desktop.
///
/// This concerns the whole process. It is the business of a program, never of a library inside a host.
void matchSystemParts(const Wx::GuiSkin& skin);

} // namespace Nolvex::Program
