// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/BinaryOutputStream.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// The bytes of a body that are sent, and of a compressed one inflated, at once.
inline constexpr std::int64_t PIECE_SIZE = 65536;

/// Inflates the zlib data at the beginning of the piece, which must hold all of it, into `target`; returns
/// how many bytes that made. Exception when the data is broken or cut off, when it makes more than `limit`
/// bytes (no more than those, and less than a piece's worth more, are made), or when the target fails.
std::int64_t inflatePiece(ArrayView<const std::byte> piece, std::int64_t limit,
                          Io::BinaryOutputStream& target);

} // namespace Nolvex::Wx::Legacy::Detail
