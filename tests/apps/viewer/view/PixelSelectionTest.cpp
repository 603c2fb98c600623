// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelSelection.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using namespace Nolvex::Viewer;

namespace {

constexpr Pixel IMAGE{100, 50};

} // namespace

TEST(PixelSelectionTest, corners_belongToTheRectangle)
{
    EXPECT_EQ(rectOfCorners({3, 4}, {5, 9}, IMAGE), wxRect(3, 4, 3, 6));
    EXPECT_EQ(rectOfCorners({5, 4}, {3, 9}, IMAGE), wxRect(3, 4, 3, 6));
    EXPECT_EQ(rectOfCorners({7, 7}, {7, 7}, IMAGE), wxRect(7, 7, 1, 1));
}

TEST(PixelSelectionTest, cornersBesideTheImage_areMovedInside)
{
    EXPECT_EQ(rectOfCorners({-30, -1}, {1000, 1000}, IMAGE), wxRect(0, 0, 100, 50));
    EXPECT_EQ(rectOfCorners({200, 10}, {300, 12}, IMAGE), wxRect(99, 10, 1, 3));
}

TEST(PixelSelectionTest, withinImage_isThePartInside)
{
    EXPECT_EQ(withinImage(wxRect(90, 40, 50, 50), IMAGE), wxRect(90, 40, 10, 10));
    EXPECT_FALSE(withinImage(wxRect(100, 0, 5, 5), IMAGE));
    EXPECT_FALSE(withinImage(wxRect(5, 5, 0, 3), IMAGE));
}

TEST(PixelSelectionTest, grown_keepsAPixelAndStaysInside)
{
    const wxRect rect(10, 10, 5, 5);
    EXPECT_EQ(grown(rect, {3, -2}, IMAGE), wxRect(10, 10, 8, 3));
    EXPECT_EQ(grown(rect, {-100, 100}, IMAGE), wxRect(10, 10, 1, 40));
    EXPECT_EQ(grown(rect, {2147483647, -2147483647}, IMAGE), wxRect(10, 10, 90, 1));
}

TEST(PixelSelectionTest, moved_keepsItsSizeAndStaysInside)
{
    const wxRect rect(10, 10, 5, 5);
    EXPECT_EQ(moved(rect, {3, -2}, IMAGE), wxRect(13, 8, 5, 5));
    EXPECT_EQ(moved(rect, {-100, 100}, IMAGE), wxRect(0, 45, 5, 5));
    EXPECT_EQ(moved(rect, {2147483647, -2147483647}, IMAGE), wxRect(95, 0, 5, 5));
}
