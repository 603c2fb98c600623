// SPDX-License-Identifier: MIT
#include "NolvexLib/Vector2.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

TEST(Vector2Test, constructor_withoutValues_isTheOrigin)
{
    EXPECT_EQ(Vector2(), (Vector2{0.0f, 0.0f}));
}

TEST(Vector2Test, arithmetic_isByComponent)
{
    constexpr Vector2 A{1.5f, -2.0f};
    constexpr Vector2 B{10.0f, 20.0f};
    EXPECT_EQ(A + B, (Vector2{11.5f, 18.0f}));
    EXPECT_EQ(A - B, (Vector2{-8.5f, -22.0f}));
    EXPECT_EQ(-A, (Vector2{-1.5f, 2.0f}));
    EXPECT_EQ(A * 2.0f, (Vector2{3.0f, -4.0f}));
    EXPECT_NE(A, (Vector2{1.5f, 2.0f}));
}

TEST(Vector2Test, assigningArithmetic_changesTheLeftSide)
{
    Vector2 vector{1.0f, 2.0f};
    vector += {0.5f, 1.0f};
    EXPECT_EQ(vector, (Vector2{1.5f, 3.0f}));
    vector -= {2.0f, 0.0f};
    EXPECT_EQ(vector, (Vector2{-0.5f, 3.0f}));
}

} // namespace
} // namespace Nolvex
