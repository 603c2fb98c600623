// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"

#include <string>
#include <vector>

/// Returns the arguments of the program, including its name, in any locale.
///
/// On POSIX systems arguments are bytes, which are read as UTF-8. A byte that belongs to no valid character
/// becomes the lone surrogate U+DC00 + byte, so that every argument can be turned back into its bytes.
std::vector<std::wstring> commandLineArguments(int argc, char** argv);

/// Returns the path that an argument names, even if the name is not valid text.
Nolvex::Io::Path pathOfArgument(const std::wstring& argument);
