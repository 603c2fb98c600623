// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/BinaryInputStream.h"

#include "Bytes.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>

namespace Nolvex::Io {
namespace {

static_assert(std::has_virtual_destructor_v<BinaryInputStream>);
static_assert(std::is_base_of_v<Polymorphic, BinaryInputStream>);

// Gives the bytes of a text a few at a time, or lies about how many it gave.
class ScriptedStream : public BinaryInputStream
{
public:
    std::string text;
    std::int64_t pieceSize = 1 << 20;
    std::int64_t lie = 0;
    bool fails = false;
    int calls = 0;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override
    {
        ++calls;
        if (fails)
            throw Exception("broken");
        const std::int64_t size = std::min({count, pieceSize, static_cast<std::int64_t>(text.size())});
        std::copy_n(text.begin(), size, static_cast<char*>(buffer));
        text.erase(0, static_cast<std::size_t>(size));
        return size + lie;
    }

    bool eofImpl() override { return text.empty(); }
};

static_assert(!std::is_copy_constructible_v<ScriptedStream> && !std::is_move_constructible_v<ScriptedStream>);
static_assert(!std::is_copy_assignable_v<ScriptedStream> && !std::is_move_assignable_v<ScriptedStream>);

TEST(BinaryInputStreamTest, read_returnsWhatTheSourceGave)
{
    ScriptedStream stream;
    stream.text = "abcdef";
    stream.pieceSize = 4;
    char buffer[7] = {};
    EXPECT_EQ(stream.read(buffer, 6), 4);
    EXPECT_STREQ(buffer, "abcd");
    EXPECT_EQ(stream.read(buffer, 6), 2);
    EXPECT_EQ(stream.read(buffer, 6), 0);
}

TEST(BinaryInputStreamTest, read_ofNothing_asksNobody)
{
    ScriptedStream stream;
    EXPECT_EQ(stream.read(nullptr, 0), 0);
    EXPECT_EQ(stream.calls, 0);
}

TEST(BinaryInputStreamTest, read_ofNegativeCount_isAProgrammingError)
{
    ScriptedStream stream;
    stream.putBack(std::byte{1});
    char buffer = 0;
    EXPECT_THROW(stream.read(&buffer, -1), StopException);
}

TEST(BinaryInputStreamTest, putBack_ofSeveral_areReadLastFirstAndBeforeTheRest)
{
    ScriptedStream stream;
    stream.text = "xyz";
    stream.putBack(std::byte{'1'});
    stream.putBack(std::byte{'2'});
    stream.putBack(std::byte{'3'});
    EXPECT_EQ(Tests::readAll(stream, 2), "321xyz");
}

TEST(BinaryInputStreamTest, putBack_inTheMiddle_comesNext)
{
    ScriptedStream stream;
    stream.text = "abc";
    char buffer[4] = {};
    EXPECT_EQ(stream.read(buffer, 2), 2);
    stream.putBack(std::byte{'b'});
    EXPECT_EQ(stream.read(buffer, 3), 2);
    EXPECT_EQ(std::string(buffer, 2), "bc");
}

TEST(BinaryInputStreamTest, putBack_afterTheEnd_isReadAndThenItIsTheEnd)
{
    ScriptedStream stream;
    EXPECT_TRUE(stream.eof());
    stream.putBack(std::byte{'z'});
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(Tests::readAll(stream), "z");
    EXPECT_TRUE(stream.eof());
}

TEST(BinaryInputStreamTest, read_satisfiedByBytesPutBack_leavesTheSourceAlone)
{
    ScriptedStream stream;
    stream.text = "abc";
    stream.putBack(std::byte{'z'});
    char buffer = 0;
    EXPECT_EQ(stream.read(&buffer, 1), 1);
    EXPECT_EQ(stream.calls, 0);
}

TEST(BinaryInputStreamTest, read_thatRaises_keepsBytesPutBack)
{
    ScriptedStream stream;
    stream.putBack(std::byte{'z'});
    stream.fails = true;
    char buffer[2] = {};
    EXPECT_THROW(stream.read(buffer, 2), Exception);
    stream.fails = false;
    EXPECT_EQ(Tests::readAll(stream), "z");
}

TEST(BinaryInputStreamTest, read_ofSourceClaimingTooMuch_isLimitedToTheCount)
{
    ScriptedStream stream;
    stream.text = "abcd";
    stream.lie = 100;
    char buffer[4] = {};
    EXPECT_EQ(stream.read(buffer, 4), 4);
}

TEST(BinaryInputStreamTest, read_ofSourceClaimingLessThanNothing_isNothing)
{
    ScriptedStream stream;
    stream.lie = -100;
    stream.putBack(std::byte{'z'});
    char buffer[4] = {};
    EXPECT_EQ(stream.read(buffer, 4), 1);
    EXPECT_EQ(stream.read(buffer, 4), 0);
}

TEST(BinaryInputStreamTest, readExactly_fromPieces_putsThemTogether)
{
    ScriptedStream stream;
    stream.text = "abcdefg";
    stream.pieceSize = 2;
    char buffer[6] = {};
    EXPECT_TRUE(stream.readExactly(buffer, 5));
    EXPECT_STREQ(buffer, "abcde");
    EXPECT_EQ(Tests::readAll(stream), "fg");
}

TEST(BinaryInputStreamTest, readExactly_beyondTheEnd_isFalse)
{
    ScriptedStream stream;
    stream.text = "abc";
    char buffer[4] = {};
    EXPECT_FALSE(stream.readExactly(buffer, 4));
}

TEST(BinaryInputStreamTest, readExactly_ofNothing_isTrueEvenAtTheEnd)
{
    ScriptedStream stream;
    EXPECT_TRUE(stream.readExactly(nullptr, 0));
}

} // namespace
} // namespace Nolvex::Io
