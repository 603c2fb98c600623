// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Progress.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// Reads a whole file of a picture, in pieces between which the progress can stop the reading. A file that is
/// too large for the memory that is left, or for the readers of its format, is refused before it is read. The
/// error is the rest of a sentence about the file. Throws Exception, with a sentence that names the file, if
/// the system does not let the file be read, and std::bad_alloc.
Expected<Array<std::byte>, String> readFileContent(const Io::Path& path, const Progress& progress);

} // namespace Nolvex::Viewer
