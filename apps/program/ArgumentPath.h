// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

namespace Nolvex::Program {

/// Returns the argument whose text a parser of the command line has returned, or else the path of that text.
/// Texts cannot represent every file name on Linux, but the argument itself can.
Io::Path argumentPath(const String& text, const Array<Io::Path>& arguments);

} // namespace Nolvex::Program
