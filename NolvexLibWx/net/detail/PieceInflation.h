// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/BinaryOutputStream.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// How many bytes of a body are sent at once, and how many of a compressed body are inflated by themselves.
inline constexpr std::int64_t PIECE_SIZE = 65536;

/// Inflates the zlib data at the beginning of the piece into `target` and returns how many bytes that gave.
/// Throws Exception if the data is broken or its end lies outside of the piece, if the data holds more than
/// `limit` bytes (then at most `limit` bytes were written), or if the target fails.
std::int64_t inflatePiece(ArrayView<const std::byte> piece, std::int64_t limit,
                          Io::BinaryOutputStream& target);

} // namespace Nolvex::Wx::Legacy::Detail
