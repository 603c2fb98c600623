// SPDX-License-Identifier: MIT
#include "NolvexLib/Pixel.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

TEST(PixelTest, constructor_withoutValues_isTheOrigin)
{
    EXPECT_EQ(Pixel(), (Pixel{0, 0}));
}

TEST(PixelTest, comparison_needsBothEqual)
{
    EXPECT_EQ((Pixel{1, 2}), (Pixel{1, 2}));
    EXPECT_NE((Pixel{1, 2}), (Pixel{1, 3}));
    EXPECT_NE((Pixel{1, 2}), (Pixel{0, 2}));
}

TEST(PixelTest, arithmetic_isByComponent)
{
    constexpr Pixel A{1, -2};
    constexpr Pixel B{10, 20};
    EXPECT_EQ(A + B, (Pixel{11, 18}));
    EXPECT_EQ(A - B, (Pixel{-9, -22}));
    EXPECT_EQ(-A, (Pixel{-1, 2}));
    EXPECT_EQ(A * 3, (Pixel{3, -6}));
}

TEST(PixelTest, assigningArithmetic_changesTheLeftSide)
{
    Pixel pixel{1, 2};
    pixel += {3, 5};
    EXPECT_EQ(pixel, (Pixel{4, 7}));
    pixel -= {1, 10};
    EXPECT_EQ(pixel, (Pixel{3, -3}));
}

} // namespace
} // namespace Nolvex
