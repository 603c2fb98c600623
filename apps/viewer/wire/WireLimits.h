// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// What a viewer takes from those who send pictures. docs/picture-protocol.md tells the values, and why a
/// sender can rely on them.
struct WireLimits
{
    /// Units of a name's UTF-8 form.
    static constexpr std::size_t MAX_NAME_BYTES = 1024;
    /// Columns or rows of a picture.
    static constexpr std::int32_t MAX_SIDE = 65'536;
    static constexpr float MAX_GAMMA = 10.0f;
    /// A header without its terminator.
    static constexpr std::size_t MAX_HEADER_BYTES = 65'536;
    /// The pixels of one message.
    static constexpr std::int64_t MAX_BODY_BYTES = std::int64_t{256} << 20;

    /// The pixels of one picture, and of all pictures that are open at the same time.
    std::int64_t maxPictureBytes = std::int64_t{2} << 30;
    std::int64_t maxTotalBytes = std::int64_t{4} << 30;
    std::size_t maxPictures = 256;
    std::size_t maxConnections = 64;
    /// A message may take so long, and in addition the time that its body takes at the slowest speed.
    std::chrono::milliseconds messageTime = std::chrono::seconds(30);
    std::int64_t minBytesPerSecond = 65'536;
    /// A sender has so long to take its answer.
    std::chrono::milliseconds answerTime = std::chrono::seconds(10);
};

} // namespace Nolvex::Viewer
