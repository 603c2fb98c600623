// SPDX-License-Identifier: MIT
#include "apps/picker/RecentColors.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Picker::RecentColors;

TEST(RecentColorsTest, latestColour_comesFirst)
{
    RecentColors recent;
    recent.add({1, 0, 0, 1});
    recent.add({0, 1, 0, 1});
    EXPECT_EQ(recent.colors(), (Array<Rgb>{{0, 1, 0, 1}, {1, 0, 0, 1}}));
}

TEST(RecentColorsTest, colourAddedAgain_movesToTheFront)
{
    RecentColors recent;
    for (const float red : {0.1f, 0.2f, 0.3f, 0.1f})
        recent.add({red, 0, 0, 1});
    EXPECT_EQ(recent.colors(), (Array<Rgb>{{0.1f, 0, 0, 1}, {0.3f, 0, 0, 1}, {0.2f, 0, 0, 1}}));
}

TEST(RecentColorsTest, nanAddedAgain_isListedOnce)
{
    RecentColors recent;
    for (int i = 0; i < 3; ++i)
        recent.add({std::numeric_limits<float>::quiet_NaN(), 0, 0, 1});
    EXPECT_EQ(recent.colors().size(), 1u);
}

TEST(RecentColorsTest, oldestOfTooManyColours_isDropped)
{
    RecentColors recent;
    for (std::size_t i = 0; i <= RecentColors::MAX_COLORS; ++i)
        recent.add({static_cast<float>(i), 0, 0, 1});
    EXPECT_EQ(recent.colors().size(), RecentColors::MAX_COLORS);
    EXPECT_EQ(recent.colors().front().r, static_cast<float>(RecentColors::MAX_COLORS));
    EXPECT_EQ(recent.colors().back().r, 1.0f);
}
