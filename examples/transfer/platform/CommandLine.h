// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"

#include <string>
#include <vector>

/// The arguments of the program, its name included, whatever the locale is.
///
/// On POSIX systems arguments are bytes, which are read as UTF-8. A byte that belongs to no valid character
/// becomes the lone surrogate U+DC00 + byte, so that every argument can be turned back into its bytes.
std::vector<std::wstring> commandLineArguments(int argc, char** argv);

/// The path that an argument names, also when the name is no valid text.
Nolvex::Io::Path pathOfArgument(const std::wstring& argument);
