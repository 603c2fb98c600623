// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/detail/GammaTable.h"

#include "../AtEachLevel.h"
#include "../Reference.h"
#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace Nolvex::Pixels {

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();

bool hasTableFor(float exponent)
{
    return GammaEncoder(exponent).hasTable();
}

std::uint8_t encoded(const GammaEncoder& encoder, float value)
{
    const Rgb pixel = {value, value, value, value};
    std::array<std::uint8_t, 3> rgb{};
    std::uint8_t alpha = 0;
    encoder.encode(&pixel, rgb.data(), &alpha, 1);
    EXPECT_TRUE(rgb[0] == rgb[1] && rgb[1] == rgb[2] && rgb[2] == alpha) << value;
    return rgb[0];
}

std::vector<std::uint8_t> encodedRow(const GammaEncoder& encoder, const std::vector<Rgb>& pixels)
{
    std::vector<std::uint8_t> rgb(pixels.size() * 3);
    encoder.encode(pixels.data(), rgb.data(), nullptr, pixels.size());
    return rgb;
}

} // namespace

TEST(GammaTableEncodePowerTest, floatsOfAllKinds_areRaisedAndRounded)
{
    for (const float exponent : {1.0f / 2.2f, 1.0f, 2.0f, 2.2f, 3.0f, -1.0f, 0.0f, INFINITE, NOT_A_NUMBER}) {
        for (const float value : Reference::specialFloats())
            ASSERT_EQ(encodePower(value, exponent), Reference::powerByte(value, exponent))
                << value << " to the power of " << exponent;
        for (const float value : Reference::randomFractions(5'000))
            ASSERT_EQ(encodePower(value, exponent), Reference::powerByte(value, exponent))
                << value << " to the power of " << exponent;
    }
}

TEST(GammaTableMakeTest, table_isNullForUnusualExponents)
{
    for (const float exponent : {0.0f, -2.2f, 2.0f, 16.0f, 17.0f, 0.01f, INFINITE, NOT_A_NUMBER})
        EXPECT_EQ(GammaTable::make(exponent), nullptr) << exponent;
}

// The exponents have the largest and the smallest tables.
TEST(GammaTableMakeTest, floatsFromTheLowestToOne_haveTheBytesOfPower)
{
    for (const float exponent : {0.0625f, 1.0f / 2.2f, 1.0f, 2.2f, 15.5f}) {
        const std::unique_ptr<const GammaTable> table = GammaTable::make(exponent);
        ASSERT_NE(table, nullptr) << exponent;
        const Detail::GammaLookup& lookup = table->lookup;
        constexpr std::uint32_t ONE = std::bit_cast<std::uint32_t>(1.0f);
        constexpr std::uint32_t STEP = 9'973; // a prime, so that the floats lie anywhere in the buckets
        for (std::uint32_t bits = std::bit_cast<std::uint32_t>(lookup.lowest); bits <= ONE; bits += STEP) {
            const std::uint32_t entry = lookup.entries[(bits >> lookup.shift) - lookup.firstBucket];
            ASSERT_EQ((entry + bits) >> lookup.shift, encodePower(std::bit_cast<float>(bits), exponent))
                << std::bit_cast<float>(bits) << " to the power of " << exponent;
        }
    }
}

TEST(GammaTableMakeTest, lookup_endsWithTheBucketOfOneAndFitsIntoTheCache)
{
    for (const float exponent : {0.0625f, 1.0f / 2.2f, 1.0f, 2.2f, 15.5f}) {
        const std::unique_ptr<const GammaTable> table = GammaTable::make(exponent);
        ASSERT_NE(table, nullptr) << exponent;
        const Detail::GammaLookup& lookup = table->lookup;
        EXPECT_EQ(lookup.entries, table->entries.data());
        EXPECT_EQ(lookup.firstBucket + table->entries.size() - 1,
                  std::bit_cast<std::uint32_t>(1.0f) >> lookup.shift);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(lookup.lowest), lookup.firstBucket << lookup.shift);
        EXPECT_EQ(encodePower(lookup.lowest, exponent), 0) << "every float below has the same byte";
        EXPECT_LE(table->entries.size(), 65'536U);
    }
}

TEST(GammaTableMakeTest, minusInfinity_isInvertedUnlessTheExponentIsOdd)
{
    EXPECT_EQ(GammaTable::make(2.2f)->lookup.infinityFlip, 0x8000'0000U);
    EXPECT_EQ(GammaTable::make(2.5f)->lookup.infinityFlip, 0x8000'0000U);
    EXPECT_EQ(GammaTable::make(1.0f)->lookup.infinityFlip, 0U);
    EXPECT_EQ(GammaTable::make(15.0f)->lookup.infinityFlip, 0U);
}

TEST(GammaTableExponentTest, table_isMadeFrom1Over16To16)
{
    EXPECT_TRUE(hasTableFor(1.0f / 16.0f));
    EXPECT_FALSE(hasTableFor(std::nextafter(1.0f / 16.0f, 0.0f)));
    EXPECT_TRUE(hasTableFor(std::nextafter(16.0f, 0.0f)));
    EXPECT_FALSE(hasTableFor(std::nextafter(16.0f, 17.0f)));
    for (const float exponent : {0.0f, -1.0f, -0.45f, NOT_A_NUMBER, INFINITE, -INFINITE})
        EXPECT_FALSE(hasTableFor(exponent)) << exponent;
}

TEST(GammaTableExponentTest, table_isNotMadeForEvenIntegers)
{
    for (const float exponent : {2.0f, 4.0f, 8.0f, 14.0f, 16.0f})
        EXPECT_FALSE(hasTableFor(exponent)) << exponent;
    for (const float exponent : {1.0f, 3.0f, 15.0f, 2.5f})
        EXPECT_TRUE(hasTableFor(exponent)) << exponent;
}

TEST(GammaTableExponentTest, table_isMadeOnlyForManyPixels)
{
    EXPECT_FALSE(GammaEncoder(2.2f, 0).hasTable());
    EXPECT_FALSE(GammaEncoder(2.2f, 1000).hasTable());
    EXPECT_TRUE(GammaEncoder(2.2f, 10'000).hasTable());
}

class GammaTableTest : public AtEachLevel
{};

INSTANTIATE_TEST_SUITE_P(Levels, GammaTableTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(GammaTableTest, endsOfTheRange_keepTheirBytes)
{
    for (const float exponent : {0.0625f, 1.0f / 2.2f, 1.0f, 2.2f, 3.0f, 15.5f}) {
        const GammaEncoder encoder(exponent);
        ASSERT_TRUE(encoder.hasTable()) << exponent;
        EXPECT_EQ(encoded(encoder, 0.0f), 0) << exponent;
        EXPECT_EQ(encoded(encoder, -0.0f), 0) << exponent;
        EXPECT_EQ(encoded(encoder, 1.0f), 255) << exponent;
        EXPECT_EQ(encoded(encoder, std::nextafter(1.0f, 2.0f)), 255) << exponent;
        EXPECT_EQ(encoded(encoder, INFINITE), 255) << exponent;
        EXPECT_EQ(encoded(encoder, NOT_A_NUMBER), 0) << exponent;
    }
}

TEST_P(GammaTableTest, minusInfinity_isWhatPowerMakesOfIt)
{
    // powf(-inf, y) is +inf, except for odd integers.
    EXPECT_EQ(encoded(GammaEncoder(1.0f / 2.2f), -INFINITE), 255);
    EXPECT_EQ(encoded(GammaEncoder(2.2f), -INFINITE), 255);
    EXPECT_EQ(encoded(GammaEncoder(1.0f), -INFINITE), 0);
    EXPECT_EQ(encoded(GammaEncoder(3.0f), -INFINITE), 0);
}

TEST_P(GammaTableTest, negativeNumbers_giveZero)
{
    for (const float exponent : {1.0f / 2.2f, 1.0f, 2.2f, 3.0f}) {
        const GammaEncoder encoder(exponent);
        for (const float value : {-1e-40f, -0.5f, -1.0f, -1e30f})
            EXPECT_EQ(encoded(encoder, value), 0) << exponent << ", " << value;
    }
}

TEST_P(GammaTableTest, exponentOne_isTheColourRule)
{
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFractions(20'000));
    const GammaEncoder encoder(1.0f);
    ASSERT_TRUE(encoder.hasTable());
    std::vector<std::uint8_t> expected(pixels.size() * 3);
    rgbToRgb8(pixels.data(), expected.data(), pixels.size());
    EXPECT_TRUE(encodedRow(encoder, pixels) == expected);
}

TEST_P(GammaTableTest, risingValues_giveBytesThatNeverFallAndLeaveNoneOut)
{
    std::vector<Rgb> pixels;
    for (int i = 0; i <= 100'000; ++i) {
        const float value = static_cast<float>(i) / 100'000.0f;
        pixels.push_back({value, value, value, value});
    }
    const std::vector<std::uint8_t> bytes = encodedRow(GammaEncoder(1.0f / 2.2f), pixels);
    EXPECT_TRUE(std::ranges::is_sorted(bytes));
    EXPECT_EQ(bytes.front(), 0);
    EXPECT_EQ(bytes.back(), 255);
    // Near 0 the curve is so steep that values of this distance skip some bytes.
    for (int byte = 10; byte < 256; ++byte)
        EXPECT_TRUE(std::ranges::binary_search(bytes, byte)) << byte;
}

TEST_P(GammaTableTest, encodersWithAndWithoutATable_agree)
{
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFloats(3'000));
    for (const float exponent : {0.0625f, 1.0f / 2.4f, 2.2f, 3.0f, 15.5f}) {
        const GammaEncoder withTable(exponent);
        const GammaEncoder withoutTable(exponent, 1);
        ASSERT_TRUE(withTable.hasTable() && !withoutTable.hasTable());
        EXPECT_TRUE(encodedRow(withTable, pixels) == encodedRow(withoutTable, pixels)) << exponent;
    }
}

} // namespace Nolvex::Pixels
