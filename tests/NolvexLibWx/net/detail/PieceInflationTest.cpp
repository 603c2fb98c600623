// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/PieceInflation.h"

#include "../../../NolvexLib/Io/Bytes.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"

#include <gtest/gtest.h>

#include <string>

namespace Nolvex::Wx::Legacy::Detail {
namespace {

Array<std::byte> deflated(std::string_view text)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target);
    Tests::writeText(stream, text);
    stream.finish();
    return target.takeBytes();
}

std::string inflated(ArrayView<const std::byte> piece, std::int64_t limit)
{
    Io::MemoryOutputStream target;
    const std::int64_t count = inflatePiece(piece, limit, target);
    EXPECT_EQ(count, target.tellp());
    return Tests::textOf(target.bytes());
}

TEST(PieceInflationTest, inflate_ofWhatFits_givesAll)
{
    const std::string text(200'000, 'x');
    EXPECT_EQ(inflated(deflated(text), 200'000), text);
    EXPECT_EQ(inflated(deflated(""), 0), "");
}

TEST(PieceInflationTest, inflate_ofMoreThanTheLimit_raises)
{
    Io::MemoryOutputStream target;
    EXPECT_THROW(inflatePiece(deflated(std::string(200'000, 'x')), 199'999, target), Exception);
    EXPECT_LE(target.tellp(), 199'999);
}

TEST(PieceInflationTest, inflate_stopsWhereTheDataEnds)
{
    Array<std::byte> piece = deflated("abc");
    piece.resize(PIECE_SIZE);
    EXPECT_EQ(inflated(piece, 3), "abc");
}

TEST(PieceInflationTest, inflate_ofNothingOrACutPiece_raises)
{
    const Array<std::byte> piece = deflated("abc");
    Io::MemoryOutputStream target;
    for (std::size_t size = 0; size < piece.size(); ++size)
        EXPECT_THROW(inflatePiece(ArrayView<const std::byte>(piece).first(size), 100, target), Exception)
            << size;
}

} // namespace
} // namespace Nolvex::Wx::Legacy::Detail
