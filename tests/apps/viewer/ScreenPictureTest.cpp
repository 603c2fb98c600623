// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenPicture.h"

#include "NolvexLib/Array.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::captureDisplays;

TEST(ScreenPictureTest, ofNoDisplay_isInvalid)
{
    EXPECT_FALSE(captureDisplays(ArrayView<const Bucket>()));
}

TEST(ScreenPictureTest, ofSeveralDisplays_isTheRectangleThatHoldsThem)
{
    const Array<Bucket> displays{{{0, 10}, {30, 40}}, {{-20, 0}, {0, 25}}, {{5, 40}, {50, 45}}};
    const Optional<Image> picture = captureDisplays(displays);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->descriptor().width, 70);
    EXPECT_EQ(picture->descriptor().height, 45);
}

TEST(ScreenPictureTest, whereNoDisplayIs_isTransparent)
{
    const Array<Bucket> displays{{{-100, -50}, {20, 20}}};
    const Optional<Image> picture = captureDisplays(displays);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->getRgba(0, 69).a, 0.0f) << "the top left corner; the bottom row comes first";
    EXPECT_EQ(picture->getRgba(119, 0).a, 1.0f);
}

TEST(ScreenPictureTest, ofAScreenThatCannotBeRead_isInvalid)
{
    // No pixel can be read there, as on a desktop that lets no program read the screen.
    const Array<Bucket> displays{{{-90'000, -90'000}, {-89'980, -89'990}}};
    EXPECT_FALSE(captureDisplays(displays));
}

TEST(ScreenPictureTest, tooLarge_isInvalid)
{
    const Array<Bucket> displays{{{0, 0}, {10, 10}}, {{2'000'000, 2'000'000}, {2'000'010, 2'000'010}}};
    EXPECT_FALSE(captureDisplays(displays));
}
