// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

namespace Nolvex::Wx::Legacy {

/// The longest header that is read unless the host sets another limit, in bytes without the terminator. While
/// it is parsed, a header may take 20 times its length of memory: one of this length takes 1.3 GB.
inline constexpr std::size_t DEFAULT_HEADER_SIZE_LIMIT = std::size_t{64} << 20;

/// How long the arrival of a header may take unless the host sets another limit.
inline constexpr std::chrono::milliseconds DEFAULT_HEADER_TIME_LIMIT = std::chrono::seconds(60);

/// The file patience unless the host sets another: how long a sender may be silent in the middle of a file.
inline constexpr std::chrono::milliseconds DEFAULT_FILE_PATIENCE = std::chrono::seconds(30);

namespace Detail {

/// The limits of what a TcpSocket accepts from its peer. The functions of TcpSocket that set them tell more.
struct ReceiveLimits
{
    std::size_t headerSize = DEFAULT_HEADER_SIZE_LIMIT;
    std::chrono::milliseconds headerTime = DEFAULT_HEADER_TIME_LIMIT;
    std::chrono::milliseconds filePatience = DEFAULT_FILE_PATIENCE;
};

} // namespace Detail

} // namespace Nolvex::Wx::Legacy
