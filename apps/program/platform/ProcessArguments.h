// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"

namespace Nolvex::Program {

/// Returns the program's arguments without its name, with every character that the user typed. On Windows
/// `main` gets the arguments in a code page that lacks most characters.
Array<Io::Path> processArguments(int argc, char** argv);

/// Returns the path of the program's own file.
Io::Path programFile();

} // namespace Nolvex::Program
