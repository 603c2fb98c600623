// SPDX-License-Identifier: MIT
#include "apps/viewer/view/Pyramid.h"

#include "apps/viewer/view/PyramidCache.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

using namespace Nolvex;
using Viewer::Pyramid;

namespace {

// Red is the column and green is the row, counted from the top. Blue is 1, alpha 0.5.
Image places(int width, int height)
{
    Image image = *Image::create(width, height, PixelFormat::FLOAT32_RGBA, 2.2f);
    for (int y = 0; y < height; ++y) {
        std::byte* to = image.row(height - 1 - y).data();
        for (int x = 0; x < width; ++x, to += sizeof(Rgb)) {
            const Rgb pixel{static_cast<float>(x), static_cast<float>(y), 1.0f, 0.5f};
            std::memcpy(to, &pixel, sizeof(pixel));
        }
    }
    return image;
}

void setPixel(Image& image, int x, int y, const Rgb& value)
{
    std::byte* const row = image.row(image.descriptor().height - 1 - y).data();
    std::memcpy(row + sizeof(Rgb) * static_cast<std::size_t>(x), &value, sizeof(value));
}

Viewer::SharedPicture grey(int width, int height)
{
    return std::make_shared<const Viewer::Picture>(
        L"grey", *Image::create(width, height, PixelFormat::UINT8_GREY, 1.0f));
}

} // namespace

TEST(PyramidTest, level_hasTheAverages)
{
    const Image image = places(8, 8);
    const Pyramid pyramid(image);
    ASSERT_TRUE(pyramid.isReady());
    const Pyramid::Level* half = pyramid.levelFor(0.5);
    ASSERT_NE(half, nullptr);
    EXPECT_EQ(half->shift, 1);
    EXPECT_EQ(half->width, 4);
    EXPECT_EQ(half->row(2)[3], (Rgb{6.5f, 4.5f, 1.0f, 0.5f}));
    const Pyramid::Level* quarter = pyramid.levelFor(0.25);
    ASSERT_NE(quarter, nullptr);
    EXPECT_EQ(quarter->row(0)[1], (Rgb{5.5f, 1.5f, 1.0f, 0.5f}));
}

TEST(PyramidTest, oddSizes_averageThePixelsThatAreThere)
{
    const Image image = places(5, 3);
    const Pyramid pyramid(image);
    const Pyramid::Level* half = pyramid.levelFor(0.5);
    ASSERT_NE(half, nullptr);
    EXPECT_EQ(half->width, 3);
    EXPECT_EQ(half->height, 2);
    EXPECT_EQ(half->row(0)[2], (Rgb{4.0f, 0.5f, 1.0f, 0.5f}));
    EXPECT_EQ(half->row(1)[0], (Rgb{0.5f, 2.0f, 1.0f, 0.5f}));
    EXPECT_EQ(half->row(1)[2], (Rgb{4.0f, 2.0f, 1.0f, 0.5f}));
}

TEST(PyramidTest, levelFor_isTheOneThatIsALittleLarger)
{
    const Image image = places(64, 64);
    const Pyramid pyramid(image);
    EXPECT_EQ(pyramid.levelFor(1.0), nullptr);
    EXPECT_EQ(pyramid.levelFor(0.51), nullptr);
    EXPECT_EQ(pyramid.levelFor(0.37)->shift, 1);
    EXPECT_EQ(pyramid.levelFor(0.26)->shift, 1);
    EXPECT_EQ(pyramid.levelFor(0.25)->shift, 2);
    EXPECT_EQ(pyramid.levelFor(0.0001)->shift, 6) << "a single pixel";
    EXPECT_EQ(pyramid.levelFor(std::nan("")), nullptr);
    EXPECT_EQ(pyramid.levelFor(0.0), nullptr);
}

TEST(PyramidTest, largestLevels_areLeftOutWithoutRoom)
{
    const Image image = places(64, 64);
    const Pyramid pyramid(image, 8 * 8 * sizeof(Rgb));
    EXPECT_EQ(pyramid.levelFor(0.5), nullptr) << "far too coarse";
    ASSERT_NE(pyramid.levelFor(0.25), nullptr);
    EXPECT_EQ(pyramid.levelFor(0.25)->shift, 3);
    EXPECT_EQ(pyramid.levelFor(0.125)->row(1)[2], (Rgb{19.5f, 11.5f, 1.0f, 0.5f}));
    EXPECT_EQ(pyramid.levelFor(0.06)->shift, 4);
    EXPECT_EQ(pyramid.byteCount(), (64 + 16 + 4 + 1) * sizeof(Rgb));
}

TEST(PyramidTest, notANumber_isNotLost)
{
    Image image = places(16, 16);
    setPixel(image, 5, 9, {std::nanf(""), 1.0f, 1.0f, 1.0f});
    setPixel(image, 0, 0, {std::numeric_limits<float>::infinity(), 1.0f, 1.0f, 1.0f});
    const Pyramid pyramid(image);
    const Pyramid::Level* quarter = pyramid.levelFor(0.25);
    ASSERT_NE(quarter, nullptr);
    EXPECT_TRUE(std::isnan(quarter->row(2)[1].r));
    EXPECT_FALSE(std::isnan(quarter->row(2)[1].g));
    EXPECT_FALSE(std::isnan(quarter->row(2)[2].r)) << "but no other pixel is";
    EXPECT_TRUE(std::isinf(quarter->row(0)[0].r));
}

TEST(PyramidTest, thinImages_haveLevelsDownToOnePixel)
{
    const Image tall = places(1, 30000);
    const Pyramid pyramid(tall);
    const Pyramid::Level* level = pyramid.levelFor(0.02);
    ASSERT_NE(level, nullptr);
    EXPECT_EQ(level->shift, 5);
    EXPECT_EQ(level->width, 1);
    EXPECT_EQ(level->row(10)[0], (Rgb{0.0f, 335.5f, 1.0f, 0.5f}));
    const Image single = places(1, 1);
    EXPECT_EQ(Pyramid(single).levelFor(0.001), nullptr);
}

TEST(PyramidTest, largeImage_isReducedInTheBackground)
{
    const Image image = places(2048, 1500);
    ASSERT_GT(2048u * 1500u, Pyramid::MAX_PIXELS_AT_ONCE);
    const Pyramid pyramid(image);
    pyramid.wait();
    ASSERT_TRUE(pyramid.isReady());
    EXPECT_EQ(pyramid.levelFor(0.5)->row(749)[1023], (Rgb{2046.5f, 1498.5f, 1.0f, 0.5f}));
    const Pyramid abandoned(image);
}

TEST(PyramidCacheTest, samePicture_isReducedOnce)
{
    Viewer::PyramidCache cache;
    const Viewer::SharedPicture one = grey(64, 64);
    const Viewer::SharedPicture two = grey(64, 64);
    const auto first = cache.of(one);
    EXPECT_NE(cache.of(two), first);
    EXPECT_EQ(cache.of(one), first);
    EXPECT_EQ(cache.count(), 2u);
    EXPECT_FALSE(cache.isBusy());
}

TEST(PyramidCacheTest, pictureUnderAnotherName_isReducedOnce)
{
    Viewer::PyramidCache cache;
    Viewer::SharedPicture picture = grey(64, 64);
    const auto first = cache.of(picture);
    const Viewer::SharedPicture renamed = picture->named(L"other");
    EXPECT_EQ(cache.of(renamed), first);
    picture.reset();
    EXPECT_EQ(cache.of(renamed), first);
    EXPECT_EQ(cache.count(), 1u);
}

TEST(PyramidCacheTest, pictureThatIsGone_isForgotten)
{
    Viewer::PyramidCache cache;
    Viewer::SharedPicture gone = grey(64, 64);
    cache.of(gone);
    const Viewer::SharedPicture other = grey(64, 64);
    gone.reset();
    cache.of(other);
    EXPECT_EQ(cache.count(), 1u);
}
