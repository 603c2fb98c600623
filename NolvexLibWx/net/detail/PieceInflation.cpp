// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/PieceInflation.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/DeflateInputStream.h"
#include "NolvexLib/Io/MemoryInputStream.h"

#include <array>

namespace Nolvex::Wx::Legacy {

std::int64_t Detail::inflatePiece(ArrayView<const std::byte> piece, std::int64_t limit,
                                  Io::BinaryOutputStream& target)
{
    Io::MemoryInputStream source(piece);
    Io::DeflateInputStream stream(source);
    std::array<std::byte, PIECE_SIZE> buffer;
    std::int64_t made = 0;
    for (;;) {
        const std::int64_t count = stream.read(buffer.data(), PIECE_SIZE);
        if (count <= 0)
            return made;
        if (count > limit - made)
            throw Exception("The compressed data holds more than was announced.");
        target.write(buffer.data(), count);
        made += count;
    }
}

} // namespace Nolvex::Wx::Legacy
