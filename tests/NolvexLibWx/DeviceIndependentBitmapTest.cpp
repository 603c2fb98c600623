// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DeviceIndependentBitmap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace Nolvex;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

constexpr std::size_t HEADER = DeviceIndependentBitmap::HEADER_SIZE;

Array<int> pixelBytes(const DeviceIndependentBitmap& bitmap)
{
    const auto bytes = bitmap.bytes().subspan(HEADER);
    return {bytes.begin(), bytes.end()};
}

Array<int> pixelBytes(const BitmapImpl<Rgb>& image)
{
    return pixelBytes(DeviceIndependentBitmap(image));
}

Array<int> disguised(const Rgb& colour)
{
    DeviceIndependentBitmap bitmap(BitmapImpl<Rgb>(1, 1, colour));
    bitmap.disguiseGrey();
    return pixelBytes(bitmap);
}

} // namespace

TEST(DeviceIndependentBitmapTest, header_hasTheseVeryBytes)
{
    const DeviceIndependentBitmap bitmap(BitmapImpl<Rgb>(300, 2));
    const auto header = bitmap.bytes().first(HEADER);
    const int expected[] = {40, 0, 0, 0, 44,   1,    0, 0, 2,    0,    0, 0, 1, 0, 24, 0, 0, 0, 0, 0,
                            0,  0, 0, 0, 0x13, 0x0b, 0, 0, 0x13, 0x0b, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0};
    EXPECT_THAT(Array<int>(header.begin(), header.end()), ElementsAreArray(expected));
    EXPECT_EQ(bitmap.bytes().size(), 40u + 900u * 2u);
}

TEST(DeviceIndependentBitmapTest, fileHeader_namesTheSizeAndWhereThePixelsAre)
{
    const DeviceIndependentBitmap bitmap(BitmapImpl<Rgb>(100, 100));
    const auto header = bitmap.fileBytes().first(DeviceIndependentBitmap::FILE_HEADER_SIZE);
    // 54 + 300 * 100 = 30054 = 0x7566
    EXPECT_THAT(Array<int>(header.begin(), header.end()),
                ElementsAre('B', 'M', 0x66, 0x75, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0));
    EXPECT_EQ(bitmap.fileBytes().size(), 30054u);
    EXPECT_EQ(bitmap.fileBytes().data() + 14, bitmap.bytes().data());
}

TEST(DeviceIndependentBitmapTest, threePixels_haveAStrideOfTwelveBytes)
{
    EXPECT_EQ(DeviceIndependentBitmap::stride(3), 12);
    BitmapImpl<Rgb> image(3, 2, {1.0f, 1.0f, 1.0f, 1.0f});
    EXPECT_THAT(pixelBytes(image), ElementsAre(255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0, //
                                               255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0));
}

TEST(DeviceIndependentBitmapTest, stride_isRoundedUpToFour)
{
    EXPECT_EQ(DeviceIndependentBitmap::stride(1), 4);
    EXPECT_EQ(DeviceIndependentBitmap::stride(2), 8);
    EXPECT_EQ(DeviceIndependentBitmap::stride(4), 12);
    EXPECT_EQ(DeviceIndependentBitmap::stride(5), 16);
    EXPECT_EQ(DeviceIndependentBitmap::stride(0x7fff'ffff), 6442450944);
}

TEST(DeviceIndependentBitmapTest, rows_standInTheImagesOrder)
{
    BitmapImpl<Rgb> image(1, 3);
    image.at(0, 0) = {1.0f, 0.0f, 0.0f, 1.0f};
    image.at(0, 1) = {0.0f, 1.0f, 0.0f, 1.0f};
    image.at(0, 2) = {0.0f, 0.0f, 1.0f, 1.0f};
    EXPECT_THAT(pixelBytes(image), ElementsAre(0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0));
    EXPECT_EQ(DeviceIndependentBitmap(image).row(1)[1], 255);
}

TEST(DeviceIndependentBitmapTest, colours_areClampedAndRoundedToEven_alphaIsDropped)
{
    EXPECT_THAT(pixelBytes(BitmapImpl<Rgb>(1, 1, {0.5f, 0.999f, -3.0f, 0.2f})), ElementsAre(0, 255, 128, 0));
    EXPECT_THAT(pixelBytes(BitmapImpl<Rgb>(1, 1, {7.0f, NAN, 0.1f, 0.0f})), ElementsAre(26, 0, 255, 0));
}

TEST(DeviceIndependentBitmapTest, isGrey_looksAtTheBytesOfEveryPixel)
{
    BitmapImpl<Rgb> image(5, 4, {0.5f, 0.5f, 0.5f, 1.0f});
    EXPECT_TRUE(DeviceIndependentBitmap(image).isGrey());
    image.at(4, 3) = {0.5f, 0.5001f, 0.5f, 1.0f};
    EXPECT_TRUE(DeviceIndependentBitmap(image).isGrey()) << "the same bytes";
    for (const Rgb colour :
         {Rgb{0.6f, 0.5f, 0.5f, 1.0f}, {0.5f, 0.6f, 0.5f, 1.0f}, {0.5f, 0.5f, 0.6f, 1.0f}}) {
        image.at(4, 3) = colour;
        EXPECT_FALSE(DeviceIndependentBitmap(image).isGrey()) << "the last pixel";
    }
    image.at(4, 3) = image.at(1, 0);
    image.at(0, 0) = {0.0f, 0.5f, 0.5f, 1.0f};
    EXPECT_FALSE(DeviceIndependentBitmap(image).isGrey()) << "the first pixel";
}

TEST(DeviceIndependentBitmapTest, disguiseGrey_changesTheFirstBlueByteByOne)
{
    EXPECT_THAT(disguised({0.5f, 0.5f, 0.5f, 1.0f}), ElementsAre(127, 128, 128, 0));
    EXPECT_THAT(disguised({0.0f, 0.0f, 0.0f, 1.0f}), ElementsAre(1, 0, 0, 0));
    EXPECT_THAT(disguised({1.0f, 1.0f, 1.0f, 1.0f}), ElementsAre(254, 255, 255, 0));
}

TEST(DeviceIndependentBitmapTest, disguiseGrey_changesNothingElse)
{
    DeviceIndependentBitmap bitmap(BitmapImpl<Rgb>(2, 2, {0.5f, 0.5f, 0.5f, 1.0f}));
    bitmap.disguiseGrey();
    EXPECT_FALSE(bitmap.isGrey());
    const Array<int> once = pixelBytes(bitmap);
    EXPECT_THAT(once, ElementsAre(127, 128, 128, 128, 128, 128, 0, 0, 128, 128, 128, 128, 128, 128, 0, 0));
    bitmap.disguiseGrey();
    EXPECT_EQ(pixelBytes(bitmap), once) << "a coloured one stays";
}

TEST(DeviceIndependentBitmapTest, disguiseGrey_leavesAColouredPictureAlone)
{
    EXPECT_THAT(disguised({0.5f, 0.5f, 0.0f, 1.0f}), ElementsAre(0, 128, 128, 0));
}

TEST(DeviceIndependentBitmapTest, emptyImages_giveAnEmptyOne)
{
    for (const auto& image :
         {BitmapImpl<Rgb>(), BitmapImpl<Rgb>(0, 5), BitmapImpl<Rgb>(5, 0), BitmapImpl<Rgb>(-3, 4)}) {
        DeviceIndependentBitmap bitmap(image);
        EXPECT_TRUE(bitmap.isEmpty());
        EXPECT_TRUE(bitmap.bytes().empty());
        EXPECT_TRUE(bitmap.fileBytes().empty());
        bitmap.disguiseGrey();
        EXPECT_TRUE(bitmap.isEmpty());
    }
}
