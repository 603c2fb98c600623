// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/RowEncoder.h"

#include "support/FloatImage.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <vector>

using namespace Nolvex;
using Tests::rowOfFloats;
using Viewer::RowEncoder;
using Viewer::toHalf;

namespace {

template<class Number>
std::vector<Number> encoded(const Image& image, ColorFormat format, bool alpha, std::int32_t row = 0)
{
    RowEncoder encoder(image, format, alpha);
    std::vector<Number> numbers(encoder.rowBytes() / sizeof(Number));
    encoder.encode(row, reinterpret_cast<std::byte*>(numbers.data()));
    return numbers;
}

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;
using Floats = std::vector<float>;

// Half floats, computed by arithmetic instead of by bits.
float halfValue(std::uint16_t half)
{
    const int exponent = half >> 10 & 31;
    const auto mantissa = static_cast<float>(half & 1023);
    return exponent == 0 ? std::ldexp(mantissa, -24) : std::ldexp(1024.0f + mantissa, exponent - 25);
}

} // namespace

TEST(RowEncoderTest, rows_areCountedFromTheTop)
{
    const Image image = Tests::placesAsFloats(2, 3, 1.0f);
    EXPECT_EQ(encoded<float>(image, ColorFormat::FLT32_LINEAR_RGB, true, 2)[1], std::pow(2.0f / 64.0f, 2.2f));
    EXPECT_EQ(encoded<std::uint8_t>(image, ColorFormat::UINT8_RGB, false, 1), (Bytes{0, 4, 128, 4, 4, 128}));
}

TEST(RowEncoderTest, bytes_ofEncodedValues_areRoundedAndClamped)
{
    const Image image =
        rowOfFloats({{0.5f, -1.0f, 2.0f, 0.3f}, {NAN, INFINITY, 1.0f / 255.0f, 200.0f / 255.0f}}, 1.0f);
    EXPECT_EQ(encoded<std::uint8_t>(image, ColorFormat::UINT8_RGB, true),
              (Bytes{128, 0, 255, 76, 0, 255, 1, 200}));
    EXPECT_EQ(encoded<std::uint8_t>(image, ColorFormat::UINT8_RGB, false), (Bytes{128, 0, 255, 0, 255, 1}));
    EXPECT_EQ(encoded<std::uint8_t>(image, ColorFormat::DEFAULT, false), (Bytes{128, 0, 255, 0, 255, 1}));
}

TEST(RowEncoderTest, bytes_ofLinearLight_areEncodedForDisplayWithoutTheirAlpha)
{
    const Image image = rowOfFloats({{0.5f, 0.0f, 1.0f, 0.5f}}, 2.2f);
    // 255 * 0.5 ^ (1 / 2.2) is 186.08.
    EXPECT_EQ(encoded<std::uint8_t>(image, ColorFormat::UINT8_RGB, true), (Bytes{186, 0, 255, 128}));
}

TEST(RowEncoderTest, words_areEncodedForDisplay)
{
    const Image linear = rowOfFloats({{0.5f, -3.0f, NAN, 0.5f}}, 2.2f);
    // 65535 * 0.5 ^ (1 / 2.2) is 47823.51.
    EXPECT_EQ(encoded<std::uint16_t>(linear, ColorFormat::UINT16_RGB, true), (Words{47824, 0, 0, 32768}));
    const Image display = rowOfFloats({{0.5f, 1.0f, 7.0f, 1.0f}}, 1.0f);
    EXPECT_EQ(encoded<std::uint16_t>(display, ColorFormat::UINT16_RGB, false), (Words{32768, 65535, 65535}));
}

TEST(RowEncoderTest, floats_ofLinearLight_stayAsTheyAre)
{
    const Floats values = encoded<float>(rowOfFloats({{-2.5f, INFINITY, NAN, 3.0f}}, 2.2f),
                                         ColorFormat::FLT32_LINEAR_RGB, true);
    EXPECT_EQ(values[0], -2.5f);
    EXPECT_EQ(values[1], INFINITY);
    EXPECT_TRUE(std::isnan(values[2]));
    EXPECT_EQ(values[3], 3.0f);
}

TEST(RowEncoderTest, floats_ofEncodedValues_becomeLinearAndKeepTheirSign)
{
    const Floats values =
        encoded<float>(rowOfFloats({{0.5f, -0.5f, 1.0f, 0.5f}}, 1.0f), ColorFormat::FLT32_LINEAR_RGB, true);
    EXPECT_FLOAT_EQ(values[0], std::pow(0.5f, 2.2f));
    EXPECT_FLOAT_EQ(values[1], -std::pow(0.5f, 2.2f));
    EXPECT_EQ(values[2], 1.0f);
    EXPECT_EQ(values[3], 0.5f) << "alpha is no light";
}

TEST(RowEncoderTest, halves_areTheNearestOnes)
{
    EXPECT_EQ(encoded<std::uint16_t>(rowOfFloats({{1.0f, -2.0f, 0.5f, 0.0f}}, 2.2f),
                                     ColorFormat::FLT16_LINEAR_RGB, true),
              (Words{0x3c00, 0xc000, 0x3800, 0}));
}

TEST(RowEncoderTest, toHalf_ofEveryHalf_isThatHalf)
{
    for (std::uint32_t half = 0; half < 0x7c00; ++half) {
        const auto bits = static_cast<std::uint16_t>(half);
        ASSERT_EQ(toHalf(halfValue(bits)), bits);
        ASSERT_EQ(toHalf(-halfValue(bits)), bits | 0x8000);
    }
}

TEST(RowEncoderTest, toHalf_betweenTwoHalves_takesTheNearerOneAndInTheMiddleTheEvenOne)
{
    for (std::uint32_t half = 0; half < 0x7bff; ++half) {
        const auto lower = static_cast<std::uint16_t>(half);
        const auto upper = static_cast<std::uint16_t>(half + 1);
        const float middle = (halfValue(lower) + halfValue(upper)) / 2.0f;
        ASSERT_EQ(toHalf(middle), half % 2 == 0 ? lower : upper) << half;
        ASSERT_EQ(toHalf(std::nextafter(middle, 0.0f)), lower) << half;
        ASSERT_EQ(toHalf(std::nextafter(middle, INFINITY)), upper) << half;
    }
}

TEST(RowEncoderTest, toHalf_ofWhatIsTooLarge_isInfiniteAndOfNanNan)
{
    EXPECT_EQ(toHalf(65519.99f), 0x7bff);
    EXPECT_EQ(toHalf(65520.0f), 0x7c00);
    EXPECT_EQ(toHalf(-std::numeric_limits<float>::max()), 0xfc00);
    EXPECT_EQ(toHalf(INFINITY), 0x7c00);
    EXPECT_EQ(toHalf(NAN) & 0x7c00, 0x7c00);
    EXPECT_NE(toHalf(NAN) & 0x03ff, 0);
}
