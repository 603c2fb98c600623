// SPDX-License-Identifier: MIT
#include "NolvexLib/Rgb.h"
#include "NolvexLib/RgbBytes.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

TEST(RgbTest, constructor_withoutValues_isTransparentBlack)
{
    EXPECT_EQ(Rgb(), (Rgb{0.0f, 0.0f, 0.0f, 0.0f}));
}

TEST(RgbTest, comparison_needsAllFourEqual)
{
    constexpr Rgb COLOR{1.0f, 2.0f, 3.0f, 4.0f};
    EXPECT_EQ(COLOR, (Rgb{1.0f, 2.0f, 3.0f, 4.0f}));
    EXPECT_NE(COLOR, (Rgb{0.0f, 2.0f, 3.0f, 4.0f}));
    EXPECT_NE(COLOR, (Rgb{1.0f, 0.0f, 3.0f, 4.0f}));
    EXPECT_NE(COLOR, (Rgb{1.0f, 2.0f, 0.0f, 4.0f}));
    EXPECT_NE(COLOR, (Rgb{1.0f, 2.0f, 3.0f, 0.0f}));
}

TEST(RgbTest, arithmetic_isByComponentAndDoesNotClamp)
{
    constexpr Rgb A{1.0f, 0.5f, 0.25f, 1.0f};
    constexpr Rgb B{0.5f, 1.5f, 2.0f, 0.25f};
    EXPECT_EQ(A + B, (Rgb{1.5f, 2.0f, 2.25f, 1.25f}));
    EXPECT_EQ(A - B, (Rgb{0.5f, -1.0f, -1.75f, 0.75f}));
    EXPECT_EQ(A * 4.0f, (Rgb{4.0f, 2.0f, 1.0f, 4.0f}));
}

TEST(RgbBytesTest, comparison_needsAllThreeEqual)
{
    constexpr RgbBytes COLOR{1, 2, 255};
    EXPECT_EQ(RgbBytes(), (RgbBytes{0, 0, 0}));
    EXPECT_EQ(COLOR, (RgbBytes{1, 2, 255}));
    EXPECT_NE(COLOR, (RgbBytes{0, 2, 255}));
    EXPECT_NE(COLOR, (RgbBytes{1, 0, 255}));
    EXPECT_NE(COLOR, (RgbBytes{1, 2, 254}));
}

} // namespace
} // namespace Nolvex
