// SPDX-License-Identifier: MIT
#include "apps/program/CapturedPixels.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Program::wasRead;

TEST(CapturedPixelsTest, transparentEverywhere_wasNotRead)
{
    EXPECT_FALSE(wasRead(BitmapImpl<Rgb>(4, 3)));
    EXPECT_FALSE(wasRead(BitmapImpl<Rgb>(4, 3, {1.0f, 1.0f, 1.0f, 0.0f})));
}

TEST(CapturedPixelsTest, emptyImage_wasNotRead)
{
    EXPECT_FALSE(wasRead(BitmapImpl<Rgb>()));
    EXPECT_FALSE(wasRead(BitmapImpl<Rgb>(0, 5)));
}

TEST(CapturedPixelsTest, onePixelOfADisplay_wasRead)
{
    for (const Pixel place : {Pixel{0, 0}, Pixel{3, 0}, Pixel{0, 2}, Pixel{3, 2}}) {
        BitmapImpl<Rgb> image(4, 3);
        image.at(place.x, place.y) = {0.0f, 0.0f, 0.0f, 1.0f};
        EXPECT_TRUE(wasRead(image)) << place.x << ", " << place.y;
    }
}

TEST(CapturedPixelsTest, alphaThatNoDisplayHas_wasNotRead)
{
    for (const float alpha : {-1.0f, -0.0f, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_FALSE(wasRead(BitmapImpl<Rgb>(4, 3, {1.0f, 1.0f, 1.0f, alpha}))) << alpha;
}

TEST(CapturedPixelsTest, imageOfOneRowOrColumn_isReadToItsEnd)
{
    BitmapImpl<Rgb> row(1000, 1);
    EXPECT_FALSE(wasRead(row));
    row.at(999, 0).a = 1.0f;
    EXPECT_TRUE(wasRead(row));
    BitmapImpl<Rgb> column(1, 1000);
    EXPECT_FALSE(wasRead(column));
    column.at(0, 999).a = 1.0f;
    EXPECT_TRUE(wasRead(column));
}
