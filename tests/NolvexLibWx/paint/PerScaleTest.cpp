// SPDX-License-Identifier: MIT
#include "NolvexLibWx/paint/PerScale.h"

#include "support/RunScale.h"

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

constexpr PerScale<int> VALUES{10, 20, 30};

} // namespace

TEST(PerScaleTest, eachScale_hasItsOwnValue)
{
    EXPECT_EQ(atScale(VALUES, 1), 10);
    EXPECT_EQ(atScale(VALUES, 2), 20);
    EXPECT_EQ(atScale(VALUES, 3), 30);
}

TEST(PerScaleTest, scalesBeyondTheTable_haveTheNearestValue)
{
    EXPECT_EQ(atScale(VALUES, 0), 10);
    EXPECT_EQ(atScale(VALUES, 4), 30);
    EXPECT_EQ(atScale(VALUES, 100), 30);
}

TEST(PerScaleTest, scaleOfTheScreen_isWhatOneDesignUnitBecomes)
{
    // One design unit becomes two pixels from 150 % on and three from 250 % on.
    const int percent = Tests::scaledByRun(100);
    EXPECT_EQ(atScreenScale(VALUES), percent < 150 ? 10 : percent < 250 ? 20 : 30) << percent << " %";
}
