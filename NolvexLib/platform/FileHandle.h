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

/// Opens a file in binary mode. Child processes do not inherit it, and the caller closes it. Returns null on
/// failure and for folders; errno then holds the reason.
std::FILE* openFile(const std::filesystem::path& name, FileMode mode);

} // namespace Nolvex::Detail
