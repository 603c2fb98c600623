// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"

#include <cstdint>
#include <filesystem>

namespace Nolvex::Viewer {

/// What the system tells about a file without opening it.
struct FileState
{
    std::filesystem::file_time_type changed;
    std::uintmax_t size = 0;

    friend bool operator==(const FileState&, const FileState&) = default;
};

/// Returns nullopt if there is no such file. Any thread may call the function.
Optional<FileState> stateOf(const Io::Path& file);

} // namespace Nolvex::Viewer
