// SPDX-License-Identifier: MIT
#include "apps/picker/HsvColor.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Picker::HsvColor;

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE_LIGHT = std::numeric_limits<float>::infinity();

void expectNear(const Rgb& actual, const Rgb& expected)
{
    EXPECT_NEAR(actual.r, expected.r, 1e-5f);
    EXPECT_NEAR(actual.g, expected.g, 1e-5f);
    EXPECT_NEAR(actual.b, expected.b, 1e-5f);
    EXPECT_EQ(actual.a, expected.a);
}

} // namespace

TEST(HsvColorTest, sixPureColours_lieSixtyDegreesApart)
{
    const Rgb pure[] = {{1, 0, 0, 1}, {1, 1, 0, 1}, {0, 1, 0, 1}, {0, 1, 1, 1}, {0, 0, 1, 1}, {1, 0, 1, 1}};
    float hue = 0.0f;
    for (const Rgb& color : pure) {
        EXPECT_EQ(HsvColor::fromRgb(color), (HsvColor{hue, 1.0f, 1.0f}));
        EXPECT_EQ((HsvColor{hue, 1.0f, 1.0f}.toRgb(1.0f)), color);
        hue += 60.0f;
    }
}

TEST(HsvColorTest, everyColour_comesBack)
{
    for (int r = 0; r <= 10; ++r) {
        for (int g = 0; g <= 10; ++g) {
            for (int b = 0; b <= 10; ++b) {
                const Rgb color =
                    Rgb{static_cast<float>(r), static_cast<float>(g), static_cast<float>(b), 5.0f} * 0.1f;
                expectNear(HsvColor::fromRgb(color).toRgb(color.a), color);
            }
        }
    }
}

TEST(HsvColorTest, lightAboveWhite_comesBack)
{
    const Rgb bright{12.5f, 3.0f, 0.25f, 0.5f};
    EXPECT_EQ(HsvColor::fromRgb(bright).value, 12.5f);
    expectNear(HsvColor::fromRgb(bright).toRgb(0.5f), bright);
}

TEST(HsvColorTest, greyAndBlack_haveNeitherHueNorSaturation)
{
    EXPECT_EQ(HsvColor::fromRgb({0.25f, 0.25f, 0.25f, 1}), (HsvColor{0, 0, 0.25f}));
    EXPECT_EQ(HsvColor::fromRgb({0, 0, 0, 1}), (HsvColor{0, 0, 0}));
}

TEST(HsvColorTest, negativeNumbersNanAndInfinity_countAsNoLight)
{
    const HsvColor red{0, 1, 0.5f};
    for (const float odd : {-3.0f, NOT_A_NUMBER, INFINITE_LIGHT, -INFINITE_LIGHT})
        EXPECT_EQ(HsvColor::fromRgb({0.5f, odd, 0, 1}), red) << odd;
    EXPECT_EQ(HsvColor::fromRgb({-1, -2, NOT_A_NUMBER, 1}), (HsvColor{0, 0, 0}));
}

TEST(HsvColorTest, largestNumbers_doNotOverflow)
{
    constexpr float LARGEST = std::numeric_limits<float>::max();
    const HsvColor hsv = HsvColor::fromRgb({LARGEST, 0, LARGEST, 1});
    EXPECT_EQ(hsv, (HsvColor{300, 1, LARGEST}));
}

TEST(HsvColorTest, hueBeyondTheCircle_goesRound)
{
    EXPECT_EQ((HsvColor{360, 1, 1}.toRgb(1)), (Rgb{1, 0, 0, 1}));
    EXPECT_EQ((HsvColor{-120, 1, 1}.toRgb(1)), (Rgb{0, 0, 1, 1}));
    EXPECT_EQ((HsvColor{840, 1, 1}.toRgb(1)), (Rgb{0, 1, 0, 1}));
    EXPECT_EQ((HsvColor{NOT_A_NUMBER, 1, 1}.toRgb(1)), (Rgb{1, 0, 0, 1}));
}
