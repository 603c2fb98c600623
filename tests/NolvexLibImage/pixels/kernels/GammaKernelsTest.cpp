// SPDX-License-Identifier: MIT
// The kernels of a GammaEncoder (in *ToBytes.cpp), with tables that no exponent gives.
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include "../Reference.h"
#include "AtEachKernelTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <span>
#include <vector>

namespace Nolvex::Pixels::Detail {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t MINUS_INFINITY = 0xff80'0000;
constexpr std::uint32_t SIGN = 0x8000'0000;
constexpr std::uint8_t GUARD = 0xa5;

std::uint32_t bitsOf(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

/// A table whose buckets have random bytes, each with a step by one at a random place.
class RandomTable
{
public:
    RandomTable(float lowest, std::int32_t shift, std::uint32_t infinityFlip)
    {
        const std::uint32_t first = bitsOf(lowest) >> shift;
        const std::uint32_t bucketSize = 1U << shift;
        for (std::uint32_t bucket = first; bucket <= bitsOf(1.0f) >> shift; ++bucket) {
            const std::uint32_t byte = next() % 255;
            m_entries.push_back((byte << shift) + next() % bucketSize - (bucket << shift));
        }
        m_lookup = {m_entries.data(), first, shift, std::bit_cast<float>(first << shift), infinityFlip};
    }

    const GammaLookup& lookup() const { return m_lookup; }

    /// The byte of a value, as GammaLookup describes it.
    std::uint8_t byteOf(float value) const
    {
        if (bitsOf(value) == MINUS_INFINITY)
            value = std::bit_cast<float>(MINUS_INFINITY ^ m_lookup.infinityFlip);
        if (std::isnan(value) || value < m_lookup.lowest)
            value = m_lookup.lowest;
        const std::uint32_t bits = bitsOf(value > 1.0f ? 1.0f : value);
        const std::uint32_t entry = m_entries[(bits >> m_lookup.shift) - m_lookup.firstBucket];
        return static_cast<std::uint8_t>((entry + bits) >> m_lookup.shift);
    }

private:
    std::uint32_t next() { return static_cast<std::uint32_t>(m_random()); }

    std::mt19937 m_random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    std::vector<std::uint32_t> m_entries;
    GammaLookup m_lookup{};
};

Bytes expectedColours(const RandomTable& table, const std::vector<Rgb>& pixels)
{
    Bytes bytes;
    for (const Rgb& pixel : pixels) {
        for (const float channel : {pixel.r, pixel.g, pixel.b})
            bytes.push_back(table.byteOf(channel));
    }
    return bytes;
}

Bytes expectedAlphas(const RandomTable& table, const std::vector<Rgb>& pixels)
{
    Bytes bytes;
    for (const Rgb& pixel : pixels)
        bytes.push_back(table.byteOf(pixel.a));
    return bytes;
}

/// Compares what both gamma kernels make of the pixels with the formula of the table.
testing::AssertionResult followTheTable(const ToBytesKernels& kernels, const RandomTable& table,
                                        const std::vector<Rgb>& pixels)
{
    Bytes colours(pixels.size() * 3);
    Bytes coloursBesideAlpha(pixels.size() * 3);
    Bytes alphas(pixels.size());
    kernels.gammaToRgb8(table.lookup(), pixels.data(), colours.data(), pixels.size());
    kernels.gammaToRgb8Alpha8(table.lookup(), pixels.data(), coloursBesideAlpha.data(), alphas.data(),
                              pixels.size());
    const Bytes expected = expectedColours(table, pixels);
    if (colours != expected || coloursBesideAlpha != expected)
        return testing::AssertionFailure() << "colours differ with shift " << table.lookup().shift;
    if (alphas != expectedAlphas(table, pixels))
        return testing::AssertionFailure() << "alphas differ with shift " << table.lookup().shift;
    return testing::AssertionSuccess();
}

std::vector<RandomTable> makeTables()
{
    std::vector<RandomTable> tables;
    tables.reserve(6); // the lookups refer to the entries
    for (const std::uint32_t flip : {0U, SIGN}) {
        tables.emplace_back(0.25f, 20, flip);
        tables.emplace_back(1e-30f, 16, flip);
        tables.emplace_back(0.9f, 10, flip);
    }
    return tables;
}

} // namespace

using GammaKernelsTest = AtEachKernelTable;
INSTANTIATE_TEST_SUITE_P(Levels, GammaKernelsTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(GammaKernelsTest, floatsOfAllKinds_followTheTable)
{
    for (const RandomTable& table : makeTables()) {
        EXPECT_TRUE(followTheTable(toBytes(), table, Reference::pixelsOf(Reference::specialFloats())));
        EXPECT_TRUE(followTheTable(toBytes(), table, Reference::pixelsOf(Reference::randomFloats(50'001))));
        EXPECT_TRUE(
            followTheTable(toBytes(), table, Reference::pixelsOf(Reference::randomFractions(50'001))));
    }
}

TEST_P(GammaKernelsTest, floatsAroundTheEndsOfTheTable_followTheTable)
{
    for (const RandomTable& table : makeTables()) {
        const std::vector<float> ends = {table.lookup().lowest, 1.0f};
        EXPECT_TRUE(followTheTable(toBytes(), table, Reference::pixelsOf(Reference::neighbours(ends, 50))));
    }
}

TEST_P(GammaKernelsTest, floatsAroundTheEdgesOfBuckets_followTheTable)
{
    const RandomTable table(0.25f, 20, 0);
    std::vector<float> edges;
    for (std::uint32_t bits = bitsOf(0.25f); bits <= bitsOf(1.0f); bits += 1U << 20)
        edges.push_back(std::bit_cast<float>(bits));
    EXPECT_TRUE(followTheTable(toBytes(), table, Reference::pixelsOf(Reference::neighbours(edges, 20))));
}

TEST_P(GammaKernelsTest, minusInfinity_isInvertedOnDemandOnly)
{
    const float infinity = std::numeric_limits<float>::infinity();
    for (const RandomTable& table : makeTables()) {
        const std::uint8_t expected = table.byteOf(table.lookup().infinityFlip == 0 ? -1.0f : infinity);
        Bytes bytes(9 * 3);
        const std::vector<Rgb> pixels(9, Rgb{-infinity, -infinity, -infinity, 0.0f});
        toBytes().gammaToRgb8(table.lookup(), pixels.data(), bytes.data(), pixels.size());
        EXPECT_EQ(bytes, Bytes(bytes.size(), expected));
    }
}

TEST_P(GammaKernelsTest, everyCountAndAlignment_writesItsBytesOnly)
{
    constexpr std::size_t MAX_PIXELS = 70;
    constexpr std::size_t ALIGNMENTS = 32;
    const RandomTable table(1e-30f, 16, 0);
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFractions(MAX_PIXELS));
    const Bytes colours = expectedColours(table, pixels);
    const Bytes alphas = expectedAlphas(table, pixels);
    for (std::size_t count = 0; count <= MAX_PIXELS; ++count) {
        for (std::size_t offset = 0; offset < ALIGNMENTS; ++offset) {
            Bytes rgb(offset + 3 * count + ALIGNMENTS, GUARD);
            Bytes alpha(ALIGNMENTS - offset + count + ALIGNMENTS, GUARD);
            Bytes expectedRgb = rgb;
            Bytes expectedAlpha = alpha;
            std::copy_n(colours.begin(), 3 * count, expectedRgb.data() + offset);
            std::copy_n(alphas.begin(), count, expectedAlpha.data() + ALIGNMENTS - offset);
            toBytes().gammaToRgb8Alpha8(table.lookup(), pixels.data(), rgb.data() + offset,
                                        alpha.data() + ALIGNMENTS - offset, count);
            ASSERT_TRUE(rgb == expectedRgb && alpha == expectedAlpha) << count << " pixels at " << offset;
        }
    }
}

TEST_P(GammaKernelsTest, largePlanesAtAnyAlignment_equalTheirParts)
{
    constexpr std::size_t COUNT = STREAMING_BYTES / 3 + 77;
    constexpr std::size_t PART = 1001;
    const RandomTable table(1e-30f, 16, 0);
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFractions(COUNT));
    Bytes rgbParts(COUNT * 3);
    Bytes alphaParts(COUNT);
    for (std::size_t done = 0; done < COUNT; done += PART)
        toBytes().gammaToRgb8Alpha8(table.lookup(), pixels.data() + done, rgbParts.data() + 3 * done,
                                    alphaParts.data() + done, std::min(PART, COUNT - done));
    // Of these distances between the planes only some let both be aligned.
    for (const std::size_t offset : {0, 1, 16, 17}) {
        Bytes rgb(COUNT * 3 + 17);
        Bytes alpha(COUNT + 1, GUARD);
        toBytes().gammaToRgb8Alpha8(table.lookup(), pixels.data(), rgb.data() + offset, alpha.data(), COUNT);
        EXPECT_TRUE(std::ranges::equal(rgbParts, std::span(rgb).subspan(offset, COUNT * 3))) << offset;
        EXPECT_TRUE(std::ranges::equal(alphaParts, std::span(alpha).first(COUNT))) << offset;
        EXPECT_EQ(alpha.back(), GUARD);
    }
}

} // namespace Nolvex::Pixels::Detail
