// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Nolvex::Program {

/// Tells the user, by UTF-8 text that names the program: on the standard error stream, or, where the program
/// was started without one as desktops on Windows do, in a message box.
void reportError(const char* program, const std::string& message);

} // namespace Nolvex::Program
