// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateOutputStream.h"

#include "DeflateSamples.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/StopException.h"
#include "support/ProcessResources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace Nolvex::Io {
namespace {

constexpr int LEVEL = DeflateOutputStream::DEFAULT_LEVEL;
constexpr int INTERVAL = 65536;

using Tests::compress;
using Tests::documentText;

Array<std::byte> compressInPieces(std::string_view text, int level = LEVEL)
{
    return compress(text, level, INTERVAL);
}

Array<ArrayView<const std::byte>> slicesOf(ArrayView<const std::byte> bytes, std::size_t interval = INTERVAL)
{
    Array<ArrayView<const std::byte>> slices;
    for (; !bytes.empty(); bytes = bytes.subspan(slices.back().size()))
        slices.push_back(bytes.first(std::min(interval, bytes.size())));
    return slices;
}

// Returns the content of one slice. Its run must be followed by zeros, or by nothing in the last slice.
std::string decompressSlice(ArrayView<const std::byte> slice, bool isLast)
{
    MemoryInputStream source(slice);
    DeflateInputStream stream(source);
    std::string text = Tests::readAll(stream);
    const std::string filler = Tests::readAll(source);
    EXPECT_EQ(filler, std::string(isLast ? 0 : filler.size(), '\0'));
    return text;
}

std::string decompressSliceBySlice(ArrayView<const std::byte> bytes, std::size_t interval = INTERVAL)
{
    std::string text;
    const auto slices = slicesOf(bytes, interval);
    for (const ArrayView<const std::byte> slice : slices)
        text += decompressSlice(slice, slice.data() == slices.back().data());
    return text;
}

// Runs of zeros, noise, lines and repetitions in random order.
std::string mixture(std::mt19937& random, std::size_t size)
{
    const std::string noise = Tests::incompressibleText(100'000);
    const std::string document = documentText(100'000);
    std::string text;
    while (text.size() < size) {
        const std::size_t start = random() % 30'000;
        const std::size_t count = random() % 70'000;
        switch (random() % 4) {
        case 0:
            text.append(count, '\0');
            break;
        case 1:
            text += noise.substr(start, count);
            break;
        case 2:
            text += document.substr(start, count);
            break;
        default:
            text += text.substr(text.size() / 2, count);
            break;
        }
    }
    text.resize(size);
    return text;
}

class DeflateRestartSizeTest : public testing::TestWithParam<std::size_t>
{};

TEST_P(DeflateRestartSizeTest, eachSlice_ofEachKindOfContent_decompressesAlone)
{
    const std::size_t size = GetParam();
    std::mt19937 random(7);
    for (const std::string& text : {std::string(size, '\0'), Tests::incompressibleText(size),
                                    documentText(size), mixture(random, size)})
        EXPECT_EQ(decompressSliceBySlice(compressInPieces(text)), text);
}

TEST_P(DeflateRestartSizeTest, eachSlice_atEachLevel_decompressesAlone)
{
    const std::string text = documentText(GetParam()) + Tests::incompressibleText(GetParam());
    for (int level = 0; level <= 9; ++level)
        EXPECT_EQ(decompressSliceBySlice(compressInPieces(text, level)), text) << level;
}

INSTANTIATE_TEST_SUITE_P(Sizes, DeflateRestartSizeTest,
                         testing::Values(0, 1, 2, 65535, 65536, 65537, 131072, 1'000'000));

TEST(DeflateRestartTest, write_ofLittle_givesTheSameBytesAsWithoutRestarts)
{
    for (const std::size_t size : {0, 1, 1000, 60'000}) {
        const std::string text = documentText(size);
        MemoryOutputStream target;
        DeflateOutputStream stream(target, LEVEL, INTERVAL);
        for (std::size_t i = 0; i < size; i += 100)
            Tests::writeText(stream, std::string_view(text).substr(i, 100));
        stream.finish();
        EXPECT_EQ(target.bytes(), compress(text)) << size;
    }
}

TEST(DeflateRestartTest, write_thatAlternatesBetweenNoiseAndZeros_isReadableSliceBySlice)
{
    const std::string noise = Tests::incompressibleText(40'000);
    for (const std::size_t period : {10, 300, 5000, 40'000}) {
        std::string text;
        while (text.size() < 600'000)
            text += noise.substr(0, period) + std::string(period, '\0');
        EXPECT_EQ(decompressSliceBySlice(compressInPieces(text)), text) << period;
    }
}

TEST(DeflateRestartTest, write_ofRandomMixturesInRandomPieces_isReadableSliceBySlice)
{
    std::mt19937 random(20);
    for (int run = 0; run < 100; ++run) {
        const std::string text = mixture(random, random() % 500'000);
        MemoryOutputStream target;
        DeflateOutputStream stream(target, LEVEL, INTERVAL);
        for (std::size_t at = 0, count = 0; at < text.size(); at += count) {
            count = 1 + random() % 80'000;
            Tests::writeText(stream, std::string_view(text).substr(at, count));
            if (random() % 3 == 0)
                stream.flush();
        }
        stream.finish();
        EXPECT_EQ(decompressSliceBySlice(target.bytes()), text) << run;
    }
}

TEST(DeflateRestartTest, write_byteByByteWithAFlushAfterEach_isReadableSliceBySlice)
{
    const std::string text = Tests::incompressibleText(20'000);
    MemoryOutputStream target;
    DeflateOutputStream stream(target, LEVEL, INTERVAL);
    for (const char byte : text) {
        stream.write(&byte, 1);
        stream.flush();
    }
    stream.finish();
    EXPECT_GT(target.tellp(), INTERVAL);
    EXPECT_EQ(decompressSliceBySlice(target.bytes()), text);
}

TEST(DeflateRestartTest, write_withAnotherInterval_restartsThere)
{
    const std::string text = documentText(100'000) + Tests::incompressibleText(100'000);
    for (const int interval : {DeflateOutputStream::MIN_RESTART_INTERVAL, 257, 1000, 65535, 100'000'000}) {
        const Array<std::byte> bytes = compress(text, LEVEL, interval);
        EXPECT_EQ(decompressSliceBySlice(bytes, static_cast<std::size_t>(interval)), text) << interval;
    }
}

// Returns how many bytes of the text fit into a single piece when they are compressed.
std::size_t mostThatFitOnePiece(std::string_view text, Optional<int> restartInterval)
{
    std::size_t fitting = 0;
    std::size_t tooMany = text.size();
    while (tooMany - fitting > 1) {
        const std::size_t middle = fitting + (tooMany - fitting) / 2;
        const bool fits = compress(text.substr(0, middle), LEVEL, restartInterval).size() <= INTERVAL;
        (fits ? fitting : tooMany) = middle;
    }
    return fitting;
}

TEST(DeflateRestartTest, write_aroundWhatFitsOnePiece_isReadableSliceBySlice)
{
    std::mt19937 random(3);
    for (const std::string& text :
         {Tests::incompressibleText(200'000), documentText(1'000'000), mixture(random, 1'000'000)}) {
        const std::size_t most = mostThatFitOnePiece(text, INTERVAL);
        EXPECT_LE(compressInPieces(text.substr(0, most)).size(), std::size_t{INTERVAL});
        EXPECT_GT(compressInPieces(text.substr(0, most + 1)).size(), std::size_t{INTERVAL});
        for (std::size_t size = most - 3; size <= most + 3; ++size)
            EXPECT_EQ(decompressSliceBySlice(compressInPieces(text.substr(0, size))), text.substr(0, size));
    }
}

TEST(DeflateRestartTest, write_ofAPieceOfNoise_leavesHardlyAnythingEmpty)
{
    EXPECT_GT(mostThatFitOnePiece(Tests::incompressibleText(100'000), INTERVAL), 65'400u);
}

TEST(DeflateRestartTest, slices_ofASingleRunThatEndsWithTheSlice_decompress)
{
    const std::string noise = Tests::incompressibleText(100'000);
    const std::string text = noise.substr(0, mostThatFitOnePiece(noise, {}));
    const Array<std::byte> bytes = compress(text);
    ASSERT_EQ(bytes.size(), std::size_t{INTERVAL});
    EXPECT_EQ(decompressSliceBySlice(bytes), text);
}

TEST(DeflateRestartTest, slices_ofALongerSingleRun_doNotDecompressAlone)
{
    const Array<std::byte> bytes = compress(documentText(1'000'000));
    const auto slices = slicesOf(bytes);
    ASSERT_GE(slices.size(), 2u);
    for (const ArrayView<const std::byte> slice : slices)
        EXPECT_THROW(decompressSlice(slice, false), Exception);
}

TEST(DeflateRestartTest, write_ofADocument_costsLessThanFourPercent)
{
    const std::string text = documentText(3'000'000);
    EXPECT_LT(compressInPieces(text).size() * 100, compress(text).size() * 104);
}

TEST(DeflateRestartTest, write_ofNoise_costsLessThanAThousandthMore)
{
    const std::string text = Tests::incompressibleText(3'000'000);
    EXPECT_LT(compressInPieces(text).size() * 1000, compress(text).size() * 1001);
}

TEST(DeflateRestartTest, flush_makesAllReadableInALaterPieceToo)
{
    const std::string text = Tests::incompressibleText(100'000);
    MemoryOutputStream target;
    DeflateOutputStream stream(target, LEVEL, INTERVAL);
    Tests::writeText(stream, text);
    stream.flush();
    const auto slices = slicesOf(target.bytes());
    ASSERT_EQ(slices.size(), 2u);
    const std::string first = decompressSlice(slices[0], false);
    MemoryInputStream source(slices[1]);
    DeflateInputStream reader(source);
    std::string second(text.size() - first.size(), '\0');
    EXPECT_TRUE(reader.readExactly(second.data(), static_cast<std::int64_t>(second.size())));
    EXPECT_EQ(first + second, text);
}

TEST(DeflateRestartTest, flush_againWhenThePieceIsFull_addsNothing)
{
    const std::string noise = Tests::incompressibleText(100'000);
    MemoryOutputStream target;
    DeflateOutputStream stream(target, LEVEL, INTERVAL);
    Tests::writeText(stream, noise.substr(0, mostThatFitOnePiece(noise, INTERVAL)));
    stream.flush();
    const std::int64_t size = target.tellp();
    for (int i = 0; i < 100; ++i)
        stream.flush();
    EXPECT_EQ(target.tellp(), size);
    stream.finish();
    EXPECT_LE(target.tellp(), INTERVAL);
}

TEST(DeflateRestartTest, destructor_finishesTheLastPiece)
{
    const std::string text = Tests::incompressibleText(100'000);
    MemoryOutputStream target;
    {
        DeflateOutputStream stream(target, LEVEL, INTERVAL);
        Tests::writeText(stream, text);
    }
    EXPECT_EQ(decompressSliceBySlice(target.bytes()), text);
}

TEST(DeflateRestartTest, constructor_withShorterIntervalThanTheLeast_isAProgrammingError)
{
    MemoryOutputStream target;
    EXPECT_THROW(DeflateOutputStream(target, LEVEL, DeflateOutputStream::MIN_RESTART_INTERVAL - 1),
                 StopException);
    EXPECT_THROW(DeflateOutputStream(target, LEVEL, 0), StopException);
    EXPECT_THROW(DeflateOutputStream(target, LEVEL, -65536), StopException);
}

// Accepts the bytes before the first boundary of a piece, and fails when the boundary is reached.
class OnePieceStream : public MemoryOutputStream
{
protected:
    void writeImpl(const void* buffer, std::int64_t count) override
    {
        if (tellp() + count >= INTERVAL)
            throw Exception("full");
        MemoryOutputStream::writeImpl(buffer, count);
    }
};

TEST(DeflateRestartTest, write_toATargetThatFailsAtTheBoundary_raisesAndFinishToo)
{
    OnePieceStream target;
    DeflateOutputStream stream(target, LEVEL, INTERVAL);
    EXPECT_THROW(Tests::writeText(stream, Tests::incompressibleText(100'000)), Exception);
    EXPECT_GT(target.tellp(), INTERVAL - 1000);
    EXPECT_THROW(stream.write("a", 1), Exception);
    EXPECT_THROW(stream.flush(), Exception);
    EXPECT_THROW(stream.finish(), Exception);
}

// Decompresses each arriving slice, whose content must be zeros, and forgets the slice.
class ZeroCountingStream : public BinaryOutputStream
{
public:
    ZeroCountingStream() { m_slice.reserve(INTERVAL); }

    void takeSlice()
    {
        MemoryInputStream source(m_slice);
        DeflateInputStream stream(source);
        Array<std::byte> content(INTERVAL);
        const Array<std::byte> expected(INTERVAL);
        for (std::int64_t count = 1; count > 0; zeros += count) {
            count = stream.read(content.data(), INTERVAL);
            ASSERT_EQ(std::memcmp(content.data(), expected.data(), static_cast<std::size_t>(count)), 0);
        }
        m_slice.clear();
    }

    std::int64_t zeros = 0;
    std::int64_t taken = 0;

protected:
    void writeImpl(const void* buffer, std::int64_t count) override
    {
        const auto* bytes = static_cast<const std::byte*>(buffer);
        taken += count;
        while (count > 0) {
            const std::int64_t piece = std::min(count, INTERVAL - static_cast<std::int64_t>(m_slice.size()));
            m_slice.insert(m_slice.end(), bytes, bytes + piece);
            if (m_slice.size() == INTERVAL)
                takeSlice();
            bytes += piece;
            count -= piece;
        }
    }

private:
    Array<std::byte> m_slice;
};

TEST(DeflateRestartTest, write_ofAGigabyteOfZeros_staysSmallOnBothSides)
{
    constexpr std::int64_t GIGABYTE = std::int64_t{1} << 30;
    const Array<std::byte> content(std::size_t{1} << 20);
    ZeroCountingStream target;
    DeflateOutputStream stream(target, LEVEL, INTERVAL);
    const std::size_t before = Tests::privateMemory();
    std::size_t most = before;
    for (std::int64_t done = 0; done < GIGABYTE; done += 1 << 20) {
        stream.write(content.data(), 1 << 20);
        most = std::max(most, Tests::privateMemory());
    }
    stream.finish();
    target.takeSlice();
    EXPECT_EQ(target.zeros, GIGABYTE);
    EXPECT_LT(target.taken, GIGABYTE / 500);
    EXPECT_LT(most - before, std::size_t{1} << 20);
}

} // namespace
} // namespace Nolvex::Io
