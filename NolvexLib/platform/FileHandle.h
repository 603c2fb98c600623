// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <filesystem>

namespace Nolvex::Detail {

enum class FileMode
{
    READ,
    CREATE_NEW,
    TRUNCATE,
    APPEND,
    TRUNCATE_AND_APPEND,
};

/// Opens a file for bytes, not inherited by child processes; the caller closes it. Null on failure, folders
/// included; errno then holds the reason.
std::FILE* openFile(const std::filesystem::path& name, FileMode mode);

} // namespace Nolvex::Detail
