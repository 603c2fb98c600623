// SPDX-License-Identifier: MIT
#include "NolvexLibWx/GeometryConversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Nolvex;
using namespace Nolvex::Wx;

namespace {

constexpr int INT_LOWEST = std::numeric_limits<int>::min();
constexpr int INT_HIGHEST = std::numeric_limits<int>::max();

} // namespace

TEST(GeometryConversionsTest, pointsAndSizes_areCopiedFieldByField)
{
    EXPECT_EQ(toPixel(wxSize(3, -4)), (Pixel{3, -4}));
    EXPECT_EQ(toPixel(wxPoint(-3, 4)), (Pixel{-3, 4}));
    EXPECT_EQ(toWxPoint(Pixel{5, 6}), wxPoint(5, 6));
    EXPECT_EQ(toWxSize(Pixel{7, 8}), wxSize(7, 8));
}

TEST(GeometryConversionsTest, toBucket_isHalfOpen)
{
    EXPECT_EQ(toBucket(wxRect(10, 20, 30, 40)), (Bucket{{10, 20}, {40, 60}}));
    EXPECT_EQ(toWxRect(Bucket{{10, 20}, {40, 60}}), wxRect(10, 20, 30, 40));
}

TEST(GeometryConversionsTest, toBucketAndToWxRect_areInverseForAnyCorners)
{
    const int values[] = {INT_LOWEST, -7, 0, 1, 1000, INT_HIGHEST};
    for (const int x : values) {
        for (const int right : values) {
            const Bucket bucket{{x, right}, {right, x}};
            EXPECT_EQ(toBucket(toWxRect(bucket)), bucket);
        }
    }
}

TEST(GeometryConversionsTest, toBoundingBox2_hasInclusiveCorners)
{
    EXPECT_EQ(toBoundingBox2(wxRect(0, 3, 10, 5)), (BoundingBox<Vector2>({0.0f, 3.0f}, {9.0f, 7.0f})));
}

TEST(GeometryConversionsTest, toBoundingBox2_ofNoOrNegativeWidth_ordersTheCorners)
{
    const BoundingBox<Vector2> none = toBoundingBox2(wxRect(5, 0, 0, 1));
    EXPECT_EQ(none.min.x, 4.0f);
    EXPECT_EQ(none.max.x, 5.0f);
    const BoundingBox<Vector2> negative = toBoundingBox2(wxRect(5, 0, -3, 1));
    EXPECT_EQ(negative.min.x, 1.0f);
    EXPECT_EQ(negative.max.x, 5.0f);
}

TEST(GeometryConversionsTest, toBoundingBox2_atTheEndOfTheIntegers_doesNotOverflow)
{
    const BoundingBox<Vector2> box = toBoundingBox2(wxRect(INT_HIGHEST, 0, INT_HIGHEST, 1));
    EXPECT_EQ(box.max.x, 4294967296.0f);
}

TEST(GeometryConversionsTest, getRectCenter_truncatesTowardZero)
{
    EXPECT_EQ(getRectCenter(wxRect(0, 0, -3, 3)), (Pixel{-1, 1}));
    EXPECT_EQ(getRectCenter(wxRect(10, 20, 5, 6)), (Pixel{12, 23}));
}

TEST(GeometryConversionsTest, pixelToPoint_isTheSameForAnyWindow)
{
    EXPECT_EQ(pixelToPoint(Pixel{-3, 4}, nullptr), (Vector2{-3.0f, 4.0f}));
    EXPECT_EQ(pixelToPoint(-3, 4, nullptr), (Vector2{-3.0f, 4.0f}));
}

TEST(GeometryConversionsTest, pointToPixel_truncatesTowardZero)
{
    EXPECT_EQ(pointToPixel(Vector2{-1.7f, 2.9f}, nullptr), (Pixel{-1, 2}));
    EXPECT_EQ(pointToPixel(-0.9f, 0.9f, nullptr), (Pixel{0, 0}));
}

TEST(GeometryConversionsTest, pointToPixel_ofAPixel_losesPrecisionAbove2To24)
{
    EXPECT_EQ(pointToPixel(Pixel{16777217, 0}, nullptr), (Pixel{16777216, 0}));
    EXPECT_EQ(pointToPixel(16777217, -16777217, nullptr), (Pixel{16777216, -16777216}));
}

TEST(GeometryConversionsTest, pointToPixel_beyondTheIntegers_staysAtTheirEnds)
{
    EXPECT_EQ(pointToPixel(1e20f, -1e20f, nullptr), (Pixel{INT_HIGHEST, INT_LOWEST}));
    EXPECT_EQ(pointToPixel(INFINITY, -INFINITY, nullptr), (Pixel{INT_HIGHEST, INT_LOWEST}));
    EXPECT_EQ(pointToPixel(NAN, NAN, nullptr), (Pixel{0, 0}));
    EXPECT_EQ(pointToPixel(INT_HIGHEST, INT_LOWEST, nullptr), (Pixel{INT_HIGHEST, INT_LOWEST}));
}
