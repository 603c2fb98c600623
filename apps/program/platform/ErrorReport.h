// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Nolvex::Program {

/// Shows the user an error, a text in UTF-8 that follows the program's name: on the standard error stream or,
/// if the program has none because it was started from the Windows desktop, in a message box.
void reportError(const char* program, const std::string& message);

} // namespace Nolvex::Program
