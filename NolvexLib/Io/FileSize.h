// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"

#include <cstdint>

namespace Nolvex::Io {

/// In bytes; none when it cannot be known or the path names no regular file (links are followed).
NOLVEXLIB_EXPORT Optional<std::uint64_t> fileSize(const Path& path) noexcept;

} // namespace Nolvex::Io
