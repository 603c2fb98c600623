// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/platform/FileHandle.h"

#include <string_view>

namespace Nolvex::Detail {

/// Throws the Exception `The file "<path>" <failure>: <reason of the errno value>.`
[[noreturn]] void throwFileError(const Io::Path& path, std::string_view failure, int error);

/// Opens the file. Throws Exception if that fails; never returns null.
std::FILE* openFileOrThrow(const Io::Path& path, FileMode mode);

} // namespace Nolvex::Detail
