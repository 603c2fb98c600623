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
