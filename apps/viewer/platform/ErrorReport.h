// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Nolvex::Viewer {

/// Tells the user, by UTF-8 text: on the standard error stream, or, where the program was started without one
/// as desktops on Windows do, in a message box.
void reportError(const std::string& message);

} // namespace Nolvex::Viewer
