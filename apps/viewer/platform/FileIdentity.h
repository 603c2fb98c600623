// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"

namespace Nolvex::Viewer::Platform {

/// Returns the absolute path of a file without symbolic links and, on Windows, in the case in which the disk
/// has it, so that two paths of the same file have the same result. A file that is missing has its absolute
/// path. The result is to be compared, not to be shown.
Io::Path identityOf(const Io::Path& file);

} // namespace Nolvex::Viewer::Platform
