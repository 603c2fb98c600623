// SPDX-License-Identifier: MIT
#include "apps/picker/PickedColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Nolvex;
using Picker::Channel;
using Picker::PickedColor;

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

} // namespace

TEST(PickedColorTest, valueDraggedToBlackAndBack_keepsHueAndSaturation)
{
    PickedColor color({0.2f, 0.4f, 0.8f, 0.5f});
    const float hue = color.channel(Channel::HUE);
    color.setChannel(Channel::VALUE, 0.0f);
    EXPECT_EQ(color.color(), (Rgb{0, 0, 0, 0.5f}));
    EXPECT_EQ(color.channel(Channel::HUE), hue);
    EXPECT_NEAR(color.channel(Channel::SATURATION), 0.75f, 1e-6f);
    color.setChannel(Channel::VALUE, 0.8f);
    EXPECT_NEAR(color.color().r, 0.2f, 1e-6f);
    EXPECT_NEAR(color.color().g, 0.4f, 1e-6f);
    EXPECT_NEAR(color.color().b, 0.8f, 1e-6f);
}

TEST(PickedColorTest, saturationDraggedToGreyAndBack_keepsTheHue)
{
    PickedColor color({0, 0, 1, 1});
    color.setChannel(Channel::SATURATION, 0.0f);
    EXPECT_EQ(color.color(), (Rgb{1, 1, 1, 1}));
    EXPECT_EQ(color.channel(Channel::HUE), 240.0f);
    color.setChannel(Channel::SATURATION, 1.0f);
    EXPECT_EQ(color.color(), (Rgb{0, 0, 1, 1}));
}

TEST(PickedColorTest, greyByItsNumbers_keepsTheHue)
{
    PickedColor color({0, 1, 0, 1});
    color.setChannel(Channel::GREEN, 0.0f);
    EXPECT_EQ(color.channel(Channel::HUE), 120.0f);
    EXPECT_EQ(color.channel(Channel::SATURATION), 1.0f);
    EXPECT_EQ(color.channel(Channel::VALUE), 0.0f);
    color.setColor({0.5f, 0.5f, 0.5f, 1});
    EXPECT_EQ(color.channel(Channel::HUE), 120.0f);
    EXPECT_EQ(color.channel(Channel::SATURATION), 0.0f);
}

TEST(PickedColorTest, hueOfAGrey_waitsForASaturation)
{
    PickedColor color({0.5f, 0.5f, 0.5f, 1});
    color.setChannel(Channel::HUE, 120.0f);
    EXPECT_EQ(color.color(), (Rgb{0.5f, 0.5f, 0.5f, 1}));
    color.setChannel(Channel::SATURATION, 1.0f);
    EXPECT_EQ(color.color(), (Rgb{0, 0.5f, 0, 1}));
}

TEST(PickedColorTest, hueOf360_staysAtTheEndOfTheSlider)
{
    PickedColor color({1, 0, 0, 1});
    color.setChannel(Channel::HUE, 360.0f);
    EXPECT_EQ(color.channel(Channel::HUE), 360.0f);
    EXPECT_EQ(color.color(), (Rgb{1, 0, 0, 1}));
}

TEST(PickedColorTest, oneNumber_leavesTheOthersExactlyAsTheyAre)
{
    constexpr float INFINITE_LIGHT = std::numeric_limits<float>::infinity();
    PickedColor color({NOT_A_NUMBER, INFINITE_LIGHT, -2.5f, 7.0f});
    color.setChannel(Channel::BLUE, 0.5f);
    EXPECT_TRUE(std::isnan(color.color().r));
    EXPECT_EQ(color.color().g, INFINITE_LIGHT);
    EXPECT_EQ(color.color().b, 0.5f);
    EXPECT_EQ(color.color().a, 7.0f);
    for (const Channel channel : {Channel::HUE, Channel::SATURATION, Channel::VALUE})
        EXPECT_TRUE(std::isfinite(color.channel(channel)));
}

TEST(PickedColorTest, whatAChannelWouldMake_changesNothing)
{
    const PickedColor color({0.25f, 0.5f, 0.75f, 1});
    EXPECT_EQ(color.withChannel(Channel::ALPHA, 0.5f), (Rgb{0.25f, 0.5f, 0.75f, 0.5f}));
    EXPECT_EQ(color.withChannel(Channel::VALUE, 0.0f), (Rgb{0, 0, 0, 1}));
    EXPECT_EQ(color.color(), (Rgb{0.25f, 0.5f, 0.75f, 1}));
}
