// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileSize.h"

#include <system_error>

namespace Nolvex::Io {

Optional<std::uint64_t> fileSize(const Path& path) noexcept
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path.native(), error))
        return {};
    const std::uintmax_t size = std::filesystem::file_size(path.native(), error);
    if (error)
        return {};
    return size;
}

} // namespace Nolvex::Io
