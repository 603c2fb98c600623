// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateInputStream.h"

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
    // Only the bits that fill up the last byte before the checksum have no meaning.
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
