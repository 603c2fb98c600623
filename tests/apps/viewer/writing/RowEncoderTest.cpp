// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/RowEncoder.h"

#include "support/FloatImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace Nolvex;
using Tests::rowOfFloats;
using Viewer::AlphaKind;
using Viewer::RowEncoder;

namespace {

template<class Number>
std::vector<Number> encoded(const Image& image, ColorFormat format, bool alpha, std::int32_t row = 0)
{
    const Viewer::Picture picture(L"picture", image);
    RowEncoder encoder(picture, format,
                       alpha ? Optional<AlphaKind>(AlphaKind::STRAIGHT) : Optional<AlphaKind>());
    std::vector<Number> numbers(encoder.rowBytes() / sizeof(Number));
    encoder.encode(row, reinterpret_cast<std::byte*>(numbers.data()));
    return numbers;
}

template<class Number>
std::vector<Number> converted(const Image& image, ColorFormat format, AlphaKind from, AlphaKind to)
{
    const Viewer::Picture picture(L"picture", image, from);
    RowEncoder encoder(picture, format, to);
    std::vector<Number> numbers(encoder.rowBytes() / sizeof(Number));
    encoder.encode(0, reinterpret_cast<std::byte*>(numbers.data()));
    return numbers;
}

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;
using Floats = std::vector<float>;

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

TEST(RowEncoderTest, associatedColours_areDividedForStraightFiles)
{
    const Image image = rowOfFloats({{0.25f, 0.5f, 3.0f, 0.5f}, {0.25f, 0.5f, 0.0f, 0.0f}}, 2.2f);
    EXPECT_EQ(
        converted<float>(image, ColorFormat::FLT32_LINEAR_RGB, AlphaKind::ASSOCIATED, AlphaKind::STRAIGHT),
        (Floats{0.5f, 1.0f, 6.0f, 0.5f, 0.25f, 0.5f, 0.0f, 0.0f}))
        << "where alpha is 0 the colours stay";
    // The light 0.5 is shown as 186 and 0.25 as 136.
    EXPECT_EQ(
        converted<std::uint8_t>(image, ColorFormat::UINT8_RGB, AlphaKind::ASSOCIATED, AlphaKind::STRAIGHT),
        (Bytes{186, 255, 255, 128, 136, 186, 0, 0}));
}

TEST(RowEncoderTest, straightColours_areMultipliedAsLightForAssociatedFiles)
{
    const Image image = rowOfFloats({{0.5f, 1.0f, 0.0f, 0.25f}, {INFINITY, 1.0f, 0.5f, 0.0f}}, 1.0f);
    const Floats values =
        converted<float>(image, ColorFormat::FLT32_LINEAR_RGB, AlphaKind::STRAIGHT, AlphaKind::ASSOCIATED);
    EXPECT_FLOAT_EQ(values[0], 0.25f * std::pow(0.5f, 2.2f));
    EXPECT_EQ(values[1], 0.25f);
    EXPECT_EQ(values[3], 0.25f);
    EXPECT_EQ((Floats{values.begin() + 4, values.end()}), (Floats{0.0f, 0.0f, 0.0f, 0.0f}));
}

TEST(RowEncoderTest, associatedLight_staysExactlyAsItIs)
{
    const Image image = rowOfFloats({{0.1f, 0.7f, 1e30f, 0.3f}, {0.25f, 0.5f, INFINITY, 0.0f}}, 2.2f);
    EXPECT_EQ(
        converted<float>(image, ColorFormat::FLT32_LINEAR_RGB, AlphaKind::ASSOCIATED, AlphaKind::ASSOCIATED),
        (Floats{0.1f, 0.7f, 1e30f, 0.3f, 0.25f, 0.5f, INFINITY, 0.0f}));
}

TEST(RowEncoderTest, associatedEncodedValues_becomeAssociatedLight)
{
    const Image image = rowOfFloats({{0.25f, 0.5f, 0.0f, 0.5f}, {0.5f, 0.0f, 0.0f, 0.0f}}, 1.0f);
    const Floats values =
        converted<float>(image, ColorFormat::FLT32_LINEAR_RGB, AlphaKind::ASSOCIATED, AlphaKind::ASSOCIATED);
    EXPECT_FLOAT_EQ(values[0], 0.5f * std::pow(0.5f, 2.2f));
    EXPECT_FLOAT_EQ(values[1], 0.5f);
    EXPECT_FLOAT_EQ(values[4], std::pow(0.5f, 2.2f)) << "light without alpha is not lost";
}

TEST(RowEncoderTest, alphaThatIsLeftOut_leavesTheColours)
{
    const Viewer::Picture picture(L"picture", rowOfFloats({{0.25f, 0.5f, 0.75f, 0.5f}}, 2.2f),
                                  AlphaKind::ASSOCIATED);
    RowEncoder encoder(picture, ColorFormat::FLT32_LINEAR_RGB, {});
    Floats numbers(3);
    ASSERT_EQ(encoder.rowBytes(), sizeof(float) * numbers.size());
    encoder.encode(0, reinterpret_cast<std::byte*>(numbers.data()));
    EXPECT_EQ(numbers, (Floats{0.25f, 0.5f, 0.75f}));
}
