// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Wx::Legacy {

/// How the body of a message travels. Raw memory is never compressed, whatever its header says.
enum class DataCompression : std::int32_t
{
    None = 0,
    /// For files: zlib data (RFC 1950) that begins anew every 65,536 bytes.
    Deflate = 1,
};

} // namespace Nolvex::Wx::Legacy
