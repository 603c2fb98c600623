// SPDX-License-Identifier: MIT
#include "NolvexLib/Bucket.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

constexpr Bucket BUCKET{{-1, 2}, {3, 8}};

TEST(BucketTest, constructor_withoutValues_isEmpty)
{
    EXPECT_TRUE(Bucket().isEmpty());
}

TEST(BucketTest, size_isTheDistanceOfTheCorners)
{
    EXPECT_EQ(BUCKET.width(), 4);
    EXPECT_EQ(BUCKET.height(), 6);
    EXPECT_EQ(BUCKET.size(), (Pixel{4, 6}));
    EXPECT_FALSE(BUCKET.isEmpty());
}

TEST(BucketTest, isEmpty_withoutWidthOrHeightOrInsideOut_isTrue)
{
    EXPECT_TRUE((Bucket{{1, 1}, {1, 5}}).isEmpty());
    EXPECT_TRUE((Bucket{{1, 1}, {5, 1}}).isEmpty());
    EXPECT_TRUE((Bucket{{5, 5}, {1, 1}}).isEmpty());
    EXPECT_FALSE((Bucket{{1, 1}, {2, 2}}).isEmpty());
}

TEST(BucketTest, contains_includesMinAndExcludesMax)
{
    EXPECT_TRUE(BUCKET.contains({-1, 2}));
    EXPECT_TRUE(BUCKET.contains({2, 7}));
    EXPECT_FALSE(BUCKET.contains({3, 7}));
    EXPECT_FALSE(BUCKET.contains({2, 8}));
    EXPECT_FALSE(BUCKET.contains({-2, 2}));
    EXPECT_FALSE(BUCKET.contains({-1, 1}));
}

TEST(BucketTest, intersected_ofOverlappingOnes_isTheCommonPart)
{
    constexpr Bucket OTHER{{0, 0}, {10, 5}};
    EXPECT_EQ(BUCKET.intersected(OTHER), (Bucket{{0, 2}, {3, 5}}));
    EXPECT_EQ(OTHER.intersected(BUCKET), (Bucket{{0, 2}, {3, 5}}));
    EXPECT_EQ(BUCKET.intersected(BUCKET), BUCKET);
}

TEST(BucketTest, intersected_ofRectanglesApart_isEmpty)
{
    EXPECT_TRUE(BUCKET.intersected({{3, 2}, {9, 8}}).isEmpty());
    EXPECT_TRUE(BUCKET.intersected({{-1, 100}, {3, 200}}).isEmpty());
    EXPECT_TRUE(BUCKET.intersected({{2, 7}, {0, 3}}).isEmpty());
}

} // namespace
} // namespace Nolvex
