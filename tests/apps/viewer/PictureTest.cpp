// SPDX-License-Identifier: MIT
#include "apps/viewer/Picture.h"

#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::Picture;

TEST(PictureTest, imageAndName_areKeptAsTheyCame)
{
    Expected<Image, String> image = Image::create(3, 2, PixelFormat::FLOAT16_RGBA, 2.2f);
    image->row(1)[5] = std::byte(77);
    const Picture picture(L"name", *image);
    EXPECT_EQ(picture.name(), L"name");
    EXPECT_EQ(picture.size(), (Pixel{3, 2}));
    EXPECT_EQ(picture.sizeText(), L"3 \u00D7 2");
    EXPECT_EQ(picture.image().descriptor().format, PixelFormat::FLOAT16_RGBA);
    EXPECT_EQ(picture.image().descriptor().gamma, 2.2f);
    EXPECT_EQ(picture.image().row(1)[5], std::byte(77));
}

TEST(PictureTest, bitmap_isMadeOnce)
{
    const Viewer::SharedPicture picture = Tests::coordinates(7, 5);
    const wxBitmap first = picture->bitmap();
    ASSERT_TRUE(first.IsOk());
    EXPECT_EQ(first.GetSize(), wxSize(7, 5));
    EXPECT_TRUE(picture->bitmap().IsSameAs(first));
}

TEST(PictureTest, bitmap_hasTheTopRowFirst)
{
    const wxImage shown = Tests::coordinates(7, 5)->bitmap().ConvertToImage();
    EXPECT_EQ(Tests::pixelAt(shown, 2, 0), Tests::coordinate(2, 0));
    EXPECT_EQ(Tests::pixelAt(shown, 6, 4), Tests::coordinate(6, 4));
}
