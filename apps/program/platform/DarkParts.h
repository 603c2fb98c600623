// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Program {

/// True if the user has chosen a theme of high contrast for the desktop.
bool hasHighContrast();

/// Asks the system to draw its parts of the program's windows dark, also those of windows that are shown
/// later, or takes the request back.
void requestDarkParts(bool dark);

} // namespace Nolvex::Program
