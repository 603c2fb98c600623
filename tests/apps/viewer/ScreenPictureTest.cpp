// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenPicture.h"

#include "NolvexLib/Array.h"

#include <wx/image.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::screenPicture;

TEST(ScreenPictureTest, ofNoDisplay_isInvalid)
{
    EXPECT_FALSE(screenPicture(ArrayView<const Bucket>()).IsOk());
}

TEST(ScreenPictureTest, ofSeveralDisplays_isTheRectangleThatHoldsThem)
{
    const Array<Bucket> displays{{{0, 10}, {30, 40}}, {{-20, 0}, {0, 25}}, {{5, 40}, {50, 45}}};
    const wxBitmap picture = screenPicture(displays);
    ASSERT_TRUE(picture.IsOk());
    EXPECT_EQ(picture.GetSize(), wxSize(70, 45));
}

TEST(ScreenPictureTest, whereNoDisplayIs_isTransparent)
{
    const Array<Bucket> displays{{{-100, -50}, {20, 20}}};
    const wxImage picture = screenPicture(displays).ConvertToImage();
    ASSERT_TRUE(picture.IsOk());
    ASSERT_TRUE(picture.HasAlpha());
    EXPECT_EQ(picture.GetAlpha(0, 0), 0);
    EXPECT_EQ(picture.GetAlpha(119, 69), 255);
}

TEST(ScreenPictureTest, ofAScreenThatCannotBeRead_isInvalid)
{
    // Nothing is read there, as everywhere under a system that lets nobody read the screen.
    const Array<Bucket> displays{{{-90'000, -90'000}, {-89'980, -89'990}}};
    EXPECT_FALSE(screenPicture(displays).IsOk());
}

TEST(ScreenPictureTest, tooLarge_isInvalid)
{
    const Array<Bucket> displays{{{0, 0}, {10, 10}}, {{2'000'000, 2'000'000}, {2'000'010, 2'000'010}}};
    EXPECT_FALSE(screenPicture(displays).IsOk());
}
