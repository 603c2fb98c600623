// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ColorMap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Nolvex;
using Viewer::ColorMap;
using Viewer::DisplaySettings;
using Viewer::FalseColor;

namespace {

constexpr float INF = std::numeric_limits<float>::infinity();

float decoded(float value)
{
    return std::pow(value, 2.2f);
}

// The lightness that the eye sees (CIE L*), from 0 to 100
float lightness(const Rgb& color)
{
    const float light = 0.2126f * decoded(color.r) + 0.7152f * decoded(color.g) + 0.0722f * decoded(color.b);
    return 116.0f * std::cbrt(light) - 16.0f;
}

ColorMap values(float from, float to)
{
    return ColorMap({.falseColor = FalseColor::VALUES, .falseColorFrom = from, .falseColorTo = to});
}

} // namespace

TEST(ColorMapTest, lightness_growsEvenly)
{
    constexpr int STEPS = 16;
    float before = lightness(ColorMap::colorAt(0.0f));
    EXPECT_LT(before, 12.0f);
    EXPECT_GT(lightness(ColorMap::colorAt(1.0f)), 88.0f);
    for (int i = 1; i <= STEPS; ++i) {
        const float now = lightness(ColorMap::colorAt(static_cast<float>(i) / STEPS));
        EXPECT_GT(now - before, 2.0f) << i;
        EXPECT_LT(now - before, 10.0f) << i;
        before = now;
    }
}

TEST(ColorMapTest, colors_areWholeBytesOfTheScreen)
{
    for (int i = 0; i < 256; ++i) {
        const Rgb& color = ColorMap::colorAt(static_cast<float>(i) / 255.0f);
        for (const float value : {color.r, color.g, color.b}) {
            EXPECT_GE(value, 0.0f);
            EXPECT_LE(value, 1.0f);
            EXPECT_NEAR(value * 255.0f, std::round(value * 255.0f), 1e-3f);
        }
        EXPECT_EQ(color.a, 1.0f);
    }
}

TEST(ColorMapTest, values_areSpreadEvenly)
{
    const ColorMap map = values(2.0f, 6.0f);
    EXPECT_EQ(map.colorOf(2.0f), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(4.0f), ColorMap::colorAt(0.5f));
    EXPECT_EQ(map.colorOf(6.0f), ColorMap::colorAt(1.0f));
}

TEST(ColorMapTest, stops_areSpreadEvenly)
{
    const ColorMap map({.falseColor = FalseColor::STOPS, .falseColorFrom = -4.0f, .falseColorTo = 4.0f});
    EXPECT_EQ(map.colorOf(1.0f / 16.0f), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(1.0f), ColorMap::colorAt(0.5f));
    EXPECT_EQ(map.colorOf(16.0f), ColorMap::colorAt(1.0f));
    EXPECT_EQ(map.colorOf(0.0f), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(-3.0f), ColorMap::colorAt(0.0f));
}

TEST(ColorMapTest, valuesBeyondTheRange_haveTheColorsOfItsEnds)
{
    const ColorMap map = values(0.0f, 1.0f);
    EXPECT_EQ(map.colorOf(-5.0f), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(-INF), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(1e30f), ColorMap::colorAt(1.0f));
    EXPECT_EQ(map.colorOf(INF), ColorMap::colorAt(1.0f));
}

TEST(ColorMapTest, rangeInTheOtherDirection_turnsTheColorsRound)
{
    const ColorMap map = values(1.0f, 0.0f);
    EXPECT_EQ(map.colorOf(1.0f), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(0.0f), ColorMap::colorAt(1.0f));
}

TEST(ColorMapTest, rangeWithoutAWidth_hasTwoColors)
{
    const ColorMap map = values(0.5f, 0.5f);
    EXPECT_EQ(map.colorOf(0.4f), ColorMap::colorAt(0.0f));
    EXPECT_EQ(map.colorOf(0.5f), ColorMap::colorAt(1.0f));
}

TEST(ColorMapTest, notANumber_hasAColorOfItsOwn)
{
    EXPECT_EQ(values(0.0f, 1.0f).colorOf(std::nanf("")), ColorMap::nanColor());
    EXPECT_EQ(values(NAN, 1.0f).colorOf(0.3f), ColorMap::colorAt(0.0f)) << "nothing else is read";
    for (int i = 0; i < 256; ++i)
        EXPECT_NE(ColorMap::colorAt(static_cast<float>(i) / 255.0f), ColorMap::nanColor());
}
