// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace Nolvex::Wx::Detail {

/// Appends to a text of which only its sender knows how long it becomes.
///
/// A long text gets a block at once that is larger than any block the C library keeps for later use. It costs
/// only as much memory as the text fills, and all of that goes back to the system: blocks that grow with the
/// text would stay with the process, for each thread that ever received a long text.
inline void appendReceived(std::string& text, const char* bytes, std::size_t count)
{
    constexpr std::size_t LONG_TEXT_SIZE = std::size_t{1} << 20;
    constexpr std::size_t LONG_TEXT_CAPACITY = std::size_t{33} << 20;
    if (text.size() + count > LONG_TEXT_SIZE && text.capacity() < LONG_TEXT_CAPACITY)
        text.reserve(LONG_TEXT_CAPACITY);
    text.append(bytes, count);
}

} // namespace Nolvex::Wx::Detail
