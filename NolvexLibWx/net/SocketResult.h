// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Wx::Legacy {

/// How a read or a write ended.
enum class SocketResult : std::int32_t
{
    /// The socket is not open, the peer went away or was silent for too long, or what came is incomplete or
    /// invalid.
    Error = 0,
    /// The caller's time limit ran out; only writes have such a limit.
    Timeout = 1,
    /// The whole message was sent or received.
    Success = 2,
};

} // namespace Nolvex::Wx::Legacy
