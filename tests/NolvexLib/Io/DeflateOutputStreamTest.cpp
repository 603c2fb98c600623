// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateOutputStream.h"

#include "DeflateSamples.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Nolvex::Io {
namespace {

using Tests::compress;
using Tests::decompress;
using Tests::documentText;
using Tests::zeros;

class DeflateSizeTest : public testing::TestWithParam<std::size_t>
{};

TEST_P(DeflateSizeTest, roundTrip_ofEachKindOfContent_givesItBack)
{
    const std::size_t size = GetParam();
    for (const std::string& text :
         {std::string(size, '\0'), Tests::incompressibleText(size), documentText(size)})
        EXPECT_EQ(decompress(compress(text)), text);
}

TEST_P(DeflateSizeTest, roundTrip_inSmallPieces_givesItBack)
{
    const std::string text = documentText(GetParam());
    MemoryOutputStream target;
    DeflateOutputStream stream(target);
    for (std::size_t i = 0; i < text.size(); i += 13)
        Tests::writeText(stream, std::string_view(text).substr(i, 13));
    stream.finish();
    EXPECT_EQ(decompress(target.bytes(), 7), text);
}

TEST_P(DeflateSizeTest, roundTrip_atEachLevel_givesItBack)
{
    const std::string text = documentText(GetParam());
    for (int level = 0; level <= 9; ++level)
        EXPECT_EQ(decompress(compress(text, level)), text) << level;
}

INSTANTIATE_TEST_SUITE_P(Sizes, DeflateSizeTest,
                         testing::Values(0, 1, 2, 16384, 65535, 65536, 65537, 1'000'000));

TEST(DeflateOutputStreamTest, finish_ofNothing_isTheEmptyZlibStream)
{
    EXPECT_EQ(compress(""), Tests::bytesOf(std::string_view("\x78\x9C\x03\x00\x00\x00\x00\x01", 8)));
}

TEST(DeflateOutputStreamTest, write_ofZeros_shrinksThemAThousandTimes)
{
    EXPECT_LT(compress(zeros(10'000'000)).size(), 10'000u);
}

TEST(DeflateOutputStreamTest, write_ofIncompressibleData_growsItHardly)
{
    EXPECT_LT(compress(Tests::incompressibleText(1'000'000)).size(), 1'001'000u);
}

TEST(DeflateOutputStreamTest, constructor_withLevelThatIsNone_isAProgrammingError)
{
    MemoryOutputStream target;
    EXPECT_THROW(DeflateOutputStream(target, 10), StopException);
    EXPECT_THROW(DeflateOutputStream(target, -2), StopException);
}

TEST(DeflateOutputStreamTest, destructor_finishes)
{
    MemoryOutputStream target;
    {
        DeflateOutputStream stream(target);
        Tests::writeText(stream, "abc");
    }
    EXPECT_EQ(decompress(target.bytes()), "abc");
}

TEST(DeflateOutputStreamTest, finish_again_addsNothing)
{
    MemoryOutputStream target;
    {
        DeflateOutputStream stream(target);
        stream.finish();
        stream.finish();
    }
    EXPECT_EQ(target.tellp(), 8);
}

TEST(DeflateOutputStreamTest, write_afterFinish_isAProgrammingError)
{
    MemoryOutputStream target;
    DeflateOutputStream stream(target);
    stream.finish();
    EXPECT_THROW(stream.write("a", 1), StopException);
}

class FlushCountingStream : public MemoryOutputStream
{
public:
    void flush() override { ++flushes; }

    int flushes = 0;
};

TEST(DeflateOutputStreamTest, flush_makesAllReadableAndFlushesTheTarget)
{
    FlushCountingStream target;
    DeflateOutputStream stream(target);
    Tests::writeText(stream, "abc");
    stream.flush();
    EXPECT_EQ(target.flushes, 1);
    MemoryInputStream source(target.bytes());
    DeflateInputStream reader(source);
    char buffer[3] = {};
    EXPECT_EQ(reader.read(buffer, 3), 3);
    EXPECT_EQ(std::string(buffer, 3), "abc");
}

TEST(DeflateOutputStreamTest, flush_withoutANewByte_addsNothing)
{
    FlushCountingStream target;
    DeflateOutputStream stream(target);
    Tests::writeText(stream, "abc");
    stream.flush();
    const std::int64_t size = target.tellp();
    stream.flush();
    EXPECT_EQ(target.tellp(), size);
    EXPECT_EQ(target.flushes, 2);
}

TEST(DeflateOutputStreamTest, flush_every65536Bytes_costsLessThanAPercent)
{
    const std::string text = documentText(std::size_t{65536} * 20);
    FlushCountingStream target;
    DeflateOutputStream stream(target);
    for (std::size_t i = 0; i < text.size(); i += 65536) {
        Tests::writeText(stream, std::string_view(text).substr(i, 65536));
        stream.flush();
    }
    stream.finish();
    EXPECT_EQ(target.flushes, 20);
    EXPECT_LT(target.bytes().size() * 100, compress(text).size() * 101);
    EXPECT_EQ(decompress(target.bytes()), text);
}

TEST(DeflateOutputStreamTest, flush_afterFinish_onlyFlushesTheTarget)
{
    FlushCountingStream target;
    DeflateOutputStream stream(target);
    stream.finish();
    stream.flush();
    EXPECT_EQ(target.flushes, 1);
    EXPECT_EQ(target.tellp(), 8);
    EXPECT_THROW(stream.write("a", 1), StopException);
}

// Fails from the given number of bytes on.
class LimitedStream : public MemoryOutputStream
{
public:
    explicit LimitedStream(std::int64_t limit) : m_limit(limit) {}

    int failures = 0;

protected:
    void writeImpl(const void* buffer, std::int64_t count) override
    {
        if (tellp() + count > m_limit) {
            ++failures;
            throw Exception("full");
        }
        MemoryOutputStream::writeImpl(buffer, count);
    }

private:
    std::int64_t m_limit;
};

TEST(DeflateOutputStreamTest, write_toFailingTarget_raisesAndFinishToo)
{
    LimitedStream target(10);
    {
        DeflateOutputStream stream(target, 0);
        EXPECT_THROW(Tests::writeText(stream, std::string(1'000'000, 'x')), Exception);
        EXPECT_THROW(stream.finish(), Exception);
        EXPECT_THROW(stream.flush(), Exception);
        EXPECT_THROW(stream.write("a", 1), Exception);
    }
    EXPECT_EQ(target.failures, 1);
}

TEST(DeflateOutputStreamTest, destructor_onFailingTarget_isSilent)
{
    LimitedStream target(3);
    EXPECT_NO_THROW({
        DeflateOutputStream stream(target);
        Tests::writeText(stream, "abc");
    });
    EXPECT_EQ(target.failures, 1);
}

} // namespace
} // namespace Nolvex::Io
