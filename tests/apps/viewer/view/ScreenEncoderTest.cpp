// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ScreenEncoder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <vector>

using namespace Nolvex;
using Viewer::ScreenCurve;
using Viewer::ScreenEncoder;

namespace {

int byteOf(float encoded)
{
    return static_cast<int>(std::nearbyint(std::fmin(std::fmax(encoded, 0.0f), 1.0f) * 255.0f));
}

std::vector<std::uint8_t> redBytes(const ScreenCurve& curve, const std::vector<float>& values)
{
    std::vector<Rgb> pixels;
    for (const float value : values)
        pixels.push_back({value, value, value, 1.0f});
    std::vector<std::uint8_t> colours(3 * values.size());
    ScreenEncoder(curve, values.size()).encode(pixels.data(), colours.data(), values.size());
    std::vector<std::uint8_t> reds;
    for (std::size_t i = 0; i < values.size(); ++i)
        reds.push_back(colours[3 * i]);
    return reds;
}

} // namespace

TEST(ScreenEncoderTest, srgb_hasTheBytesOfTheCurve)
{
    std::vector<float> values;
    for (std::uint32_t bits = 0; bits < 0x3f900000u; bits += 1013u * 37u)
        values.push_back(std::bit_cast<float>(bits));
    for (const float exponent : {1.0f, 0.5f, 2.0f, 0.1f, 10.0f}) {
        const ScreenCurve curve{true, exponent};
        const std::vector<std::uint8_t> bytes = redBytes(curve, values);
        for (std::size_t i = 0; i < values.size(); ++i)
            ASSERT_EQ(bytes[i], byteOf(curve.at(values[i]))) << values[i] << " to the power of " << exponent;
    }
}

TEST(ScreenEncoderTest, srgb_isTheCurveOfTheStandard)
{
    EXPECT_EQ(redBytes({true, 1.0f}, {0.0f, 0.002f, 0.0031308f, 0.18f, 0.5f, 1.0f}),
              (std::vector<std::uint8_t>{0, 7, 10, 118, 188, 255}));
    EXPECT_FLOAT_EQ((ScreenCurve{true, 1.0f}.at(-0.5f)), -0.7353569f);
}

TEST(ScreenEncoderTest, whatIsNoNumberOrEndless_isBlackOrWhite)
{
    constexpr float INF = std::numeric_limits<float>::infinity();
    for (const ScreenCurve& curve :
         {ScreenCurve{true, 1.0f}, ScreenCurve{false, 1.0f}, ScreenCurve{false, 0.45f}}) {
        EXPECT_EQ(redBytes(curve, {std::nanf(""), INF, -1.0f, 3e38f}),
                  (std::vector<std::uint8_t>{0, 255, 0, 255}));
    }
    EXPECT_EQ(redBytes({true, 1.0f}, {-INF}), (std::vector<std::uint8_t>{0}));
}

TEST(ScreenEncoderTest, curve_leavesAlphaAsItIs)
{
    for (const ScreenCurve& curve :
         {ScreenCurve{true, 0.5f}, ScreenCurve{false, 0.45f}, ScreenCurve{true, 1.0f, 1.5f}})
        EXPECT_EQ(curve.at(Rgb{0.5f, 0.5f, 0.5f, 0.25f}).a, 0.25f);
}

TEST(ScreenEncoderTest, valueBeforeTheCurve_isTurnedIntoTheSameByteAgain)
{
    for (const ScreenCurve& curve : {ScreenCurve{}, ScreenCurve{true, 1.0f}, ScreenCurve{false, 1.0f / 2.2f},
                                     ScreenCurve{true, 0.5f, 1.3f}, ScreenCurve{false, 2.2f}}) {
        std::vector<float> values;
        std::vector<std::uint8_t> bytes;
        for (int byte = 0; byte < 256; ++byte) {
            values.push_back(curve.before(static_cast<float>(byte) / 255.0f));
            bytes.push_back(static_cast<std::uint8_t>(byte));
        }
        EXPECT_EQ(redBytes(curve, values), bytes) << curve.isSrgb << ", " << curve.exponent;
    }
}

TEST(ScreenEncoderTest, otherGammas_becomeLightBeforeTheCurveOfSrgb)
{
    const float stored = 0.6f;
    const float light = std::pow(stored, 1.25f);
    EXPECT_EQ(redBytes({true, 1.0f, 1.25f}, {stored}), redBytes({true, 1.0f}, {light}));
}
