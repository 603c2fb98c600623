// SPDX-License-Identifier: MIT
#include "NolvexLib/BoundingBox.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

const BoundingBox<Vector2> BOX({1.0f, 2.0f}, {5.0f, 4.0f});

TEST(BoundingBoxTest, constructor_sortsTheCorners)
{
    const BoundingBox<Vector2> box({5.0f, 2.0f}, {1.0f, 4.0f});
    EXPECT_EQ(box, BOX);
    EXPECT_EQ(box.min, (Vector2{1.0f, 2.0f}));
    EXPECT_EQ(box.max, (Vector2{5.0f, 4.0f}));
}

TEST(BoundingBoxTest, contains_includesTheEdges)
{
    EXPECT_TRUE(BOX.contains({1.0f, 2.0f}));
    EXPECT_TRUE(BOX.contains({5.0f, 4.0f}));
    EXPECT_TRUE(BOX.contains({3.0f, 3.0f}));
    EXPECT_FALSE(BOX.contains({0.5f, 3.0f}));
    EXPECT_FALSE(BOX.contains({5.5f, 3.0f}));
    EXPECT_FALSE(BOX.contains({3.0f, 1.5f}));
    EXPECT_FALSE(BOX.contains({3.0f, 4.5f}));
}

TEST(BoundingBoxTest, squaredDistance_inside_isZero)
{
    EXPECT_EQ(BOX.squaredDistance({3.0f, 3.0f}), 0.0f);
    EXPECT_EQ(BOX.squaredDistance({1.0f, 4.0f}), 0.0f);
}

TEST(BoundingBoxTest, squaredDistance_outside_isThatToTheNearestPoint)
{
    EXPECT_EQ(BOX.squaredDistance({-1.0f, 3.0f}), 4.0f);
    EXPECT_EQ(BOX.squaredDistance({8.0f, 3.0f}), 9.0f);
    EXPECT_EQ(BOX.squaredDistance({3.0f, 0.0f}), 4.0f);
    EXPECT_EQ(BOX.squaredDistance({3.0f, 5.0f}), 1.0f);
    EXPECT_EQ(BOX.squaredDistance({8.0f, 8.0f}), 25.0f);
}

} // namespace
} // namespace Nolvex
