// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ColourConversions.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

using namespace Nolvex;
using namespace Nolvex::Wx;

TEST(ColourConversionsTest, toRgb_multipliesByTheSinglePrecisionConstant)
{
    const Rgb colour = toRgb(wxColour(1, 128, 255));
    EXPECT_EQ(std::bit_cast<std::uint32_t>(colour.r), 0x3B808081u);
    EXPECT_EQ(colour.g, 128.0f * std::bit_cast<float>(0x3B808081u));
    EXPECT_EQ(colour.b, 1.0f);
    EXPECT_EQ(colour.a, 1.0f);
}

TEST(ColourConversionsTest, toRgb_ignoresTheColoursAlpha)
{
    EXPECT_EQ(toRgb(wxColour(255, 0, 0, 0)), (Rgb{1.0f, 0.0f, 0.0f, 1.0f}));
}

TEST(ColourConversionsTest, toRgbBytes_dropsAlpha)
{
    EXPECT_EQ(toRgbBytes(wxColour(1, 2, 3, 4)), (RgbBytes{1, 2, 3}));
}

TEST(ColourConversionsTest, toWxColour_ofBytes_isOpaque)
{
    EXPECT_EQ(toWxColour(RgbBytes{1, 2, 3}), wxColour(1, 2, 3, 255));
    EXPECT_EQ(toWxColour(RgbBytes{1, 2, 3}).Alpha(), 255);
}

TEST(ColourConversionsTest, toWxColour_clampsRoundsToEvenAndIsOpaque)
{
    const wxColour colour = toWxColour(Rgb{1.5f, -0.2f, 0.5f, 0.0f});
    EXPECT_EQ(colour, wxColour(255, 0, 128, 255));
    EXPECT_EQ(colour.Alpha(), 255);
}

TEST(ColourConversionsTest, toWxColour_ofNaN_isZeroInThatChannel)
{
    EXPECT_EQ(toWxColour(Rgb{NAN, 1.0f, -NAN, 1.0f}), wxColour(0, 255, 0, 255));
}

TEST(ColourConversionsTest, toWxColour_ofInfinities_clamps)
{
    EXPECT_EQ(toWxColour(Rgb{INFINITY, -INFINITY, 1e30f, NAN}), wxColour(255, 0, 255, 255));
}

TEST(ColourConversionsTest, everyByte_survivesTheWayThroughFloat)
{
    for (int value = 0; value < 256; ++value) {
        const auto byte = static_cast<unsigned char>(value);
        const wxColour colour(byte, byte, byte);
        EXPECT_EQ(toWxColour(toRgb(colour)), colour) << value;
    }
}

TEST(ColourConversionsTest, ties_goToTheEvenByte)
{
    // Channels whose product with 255 is exactly a half in single precision.
    int ties = 0;
    for (int lower = 0; lower < 255; ++lower) {
        const float half = static_cast<float>(lower) + 0.5f;
        const float channel = half / 255.0f;
        if (channel * 255.0f != half)
            continue;
        ++ties;
        EXPECT_EQ(toWxColour(Rgb{channel, 0.0f, 0.0f, 1.0f}).Red(), lower % 2 == 0 ? lower : lower + 1)
            << lower;
    }
    EXPECT_GT(ties, 100);
}
