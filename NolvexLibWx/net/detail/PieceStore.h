// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ByteArray.h"
#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLibWx/net/detail/PieceInflation.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace Nolvex::Wx::Legacy::Detail {

/// Keeps what is written in pieces of PIECE_SIZE bytes, the last of which may be shorter. The memory grows by
/// a piece at a time and is never copied, as that of one large block would be.
class PieceStore : public Io::BinaryOutputStream
{
public:
    void flush() override {}

    /// In bytes.
    std::int64_t size() const { return m_size; }

    const Array<ByteArray>& pieces() const { return m_pieces; }

protected:
    void writeImpl(const void* buffer, std::int64_t count) override
    {
        const auto* bytes = static_cast<const std::byte*>(buffer);
        for (std::int64_t left = count; left > 0;) {
            const std::int64_t room = PIECE_SIZE - m_size % PIECE_SIZE;
            if (room == PIECE_SIZE)
                addPiece();
            const std::int64_t part = std::min(left, room);
            m_pieces.back().append(bytes, static_cast<std::size_t>(part));
            m_size += part;
            bytes += part;
            left -= part;
        }
    }

private:
    void addPiece()
    {
        ByteArray piece;
        piece.reserve(static_cast<std::size_t>(PIECE_SIZE));
        m_pieces.push_back(std::move(piece));
    }

    Array<ByteArray> m_pieces;
    std::int64_t m_size = 0;
};

} // namespace Nolvex::Wx::Legacy::Detail
