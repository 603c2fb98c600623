// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateInputStream.h"
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

std::string zeros(std::size_t size)
{
    std::string text;
    text.resize(size);
    return text;
}

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

TEST(DeflateInputStreamTest, read_ofForeignData_understandsIt)
{
    const Array<std::byte> bytes =
        Tests::bytesOf(std::string_view("\x78\x9C\x4B\x4C\x4A\x06\x00\x02\x4D\x01\x27", 11));
    EXPECT_EQ(decompress(bytes), "abc");
}

TEST(DeflateInputStreamTest, read_ofDataCutOffAnywhere_raises)
{
    const Array<std::byte> bytes = compress(documentText(300));
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_THROW(decompress(ArrayView<const std::byte>(bytes).first(size)), Exception) << size;
}

TEST(DeflateInputStreamTest, read_ofDataCutOff_raisesEachTime)
{
    const Array<std::byte> bytes = compress("abc");
    MemoryInputStream source(ArrayView<const std::byte>(bytes).first(5));
    DeflateInputStream stream(source);
    char buffer[100] = {};
    EXPECT_THROW(stream.read(buffer, 100), Exception);
    EXPECT_THROW(stream.read(buffer, 100), Exception);
    EXPECT_THROW(stream.eof(), Exception);
}

TEST(DeflateInputStreamTest, read_ofDataWithAFlippedBit_raises)
{
    const std::string text = documentText(300);
    const Array<std::byte> bytes = compress(text);
    std::size_t unnoticed = 0;
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        Array<std::byte> broken = bytes;
        broken[bit / 8] ^= std::byte{1} << bit % 8;
        try {
            EXPECT_EQ(decompress(broken), text) << bit;
            ++unnoticed;
        } catch (const Exception&) {
            continue;
        }
    }
    // Only those that fill up the last byte before the checksum mean nothing.
    EXPECT_LE(unnoticed, 7u);
}

TEST(DeflateInputStreamTest, read_ofNoise_raises)
{
    EXPECT_THROW(decompress(Tests::bytesOf("this was never compressed")), Exception);
}

TEST(DeflateInputStreamTest, read_ofDataWithPresetDictionary_raises)
{
    const Array<std::byte> bytes =
        Tests::bytesOf(std::string_view("\x78\xBB\x00\x00\x00\x01\x03\x00\x00\x00\x00\x01", 12));
    EXPECT_THROW(decompress(bytes), Exception);
}

TEST(DeflateInputStreamTest, read_withOneByteMoreThanThereIs_checksTheChecksum)
{
    Array<std::byte> bytes = compress("abc");
    bytes.back() ^= std::byte{1};
    MemoryInputStream source(bytes);
    DeflateInputStream stream(source);
    char buffer[4] = {};
    EXPECT_THROW(stream.read(buffer, 4), Exception);
}

TEST(DeflateInputStreamTest, eof_behindTheLastByte_isTrue)
{
    const Array<std::byte> bytes = compress("ab");
    MemoryInputStream source(bytes);
    DeflateInputStream stream(source);
    char byte = 0;
    EXPECT_FALSE(stream.eof());
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(stream.read(&byte, 1), 1);
    EXPECT_EQ(byte, 'a');
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(stream.read(&byte, 1), 1);
    EXPECT_EQ(byte, 'b');
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(stream.read(&byte, 1), 0);
}

TEST(DeflateInputStreamTest, read_toTheEnd_leavesWhatFollowsInTheSource)
{
    const std::string rest = Tests::incompressibleText(40000);
    Array<std::byte> bytes = compress("abc");
    const Array<std::byte> restBytes = Tests::bytesOf(rest);
    bytes.insert(bytes.end(), restBytes.begin(), restBytes.end());
    MemoryInputStream source(bytes);
    DeflateInputStream stream(source);
    EXPECT_EQ(Tests::readAll(stream), "abc");
    EXPECT_EQ(Tests::readAll(source), rest);
    EXPECT_TRUE(stream.eof());
}

TEST(DeflateInputStreamTest, read_ofTwoRunsInOneSource_givesOneAfterTheOther)
{
    Array<std::byte> bytes = compress("first");
    const Array<std::byte> second = compress("second");
    bytes.insert(bytes.end(), second.begin(), second.end());
    MemoryInputStream source(bytes);
    DeflateInputStream firstStream(source);
    EXPECT_EQ(Tests::readAll(firstStream), "first");
    DeflateInputStream secondStream(source);
    EXPECT_EQ(Tests::readAll(secondStream), "second");
    EXPECT_TRUE(source.eof());
}

TEST(DeflateInputStreamTest, read_ofABomb_givesNoMoreThanAskedFor)
{
    const Array<std::byte> bytes = compress(zeros(10'000'000));
    MemoryInputStream source(bytes);
    DeflateInputStream stream(source);
    std::string buffer(100, 'x');
    EXPECT_EQ(stream.read(buffer.data(), 99), 99);
    EXPECT_EQ(buffer, std::string(99, '\0') + "x");
}

// Gives its bytes one at a time.
class TricklingStream : public MemoryInputStream
{
public:
    using MemoryInputStream::MemoryInputStream;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override
    {
        return MemoryInputStream::readImpl(buffer, std::min<std::int64_t>(count, 1));
    }
};

TEST(DeflateInputStreamTest, read_fromTricklingSource_givesAll)
{
    const std::string text = documentText(10000);
    const Array<std::byte> bytes = compress(text);
    TricklingStream source(bytes);
    DeflateInputStream stream(source);
    EXPECT_EQ(Tests::readAll(stream), text);
}

} // namespace
} // namespace Nolvex::Io
