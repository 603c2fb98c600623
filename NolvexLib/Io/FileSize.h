// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"

#include <cstdint>

namespace Nolvex::Io {

/// The size of a regular file in bytes. Links are followed. Returns nullopt for anything else, and if the
/// size cannot be found out.
NOLVEXLIB_EXPORT Optional<std::uint64_t> fileSize(const Path& path) noexcept;

} // namespace Nolvex::Io
