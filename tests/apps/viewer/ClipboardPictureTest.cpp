// SPDX-License-Identifier: MIT
#include "apps/viewer/ClipboardPicture.h"

#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/DeviceIndependentBitmap.h"
#include "apps/viewer/Picture.h"
#include "support/Screen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

using namespace Nolvex;
using Viewer::clipboardPicture;

namespace {

constexpr RgbBytes BLACK{0, 0, 0};

Image floatImage(std::int32_t width, std::int32_t height, float gamma)
{
    return *Image::create(width, height, PixelFormat::FLOAT32_RGBA, gamma);
}

void setPixel(Image& image, std::int32_t x, std::int32_t y, const Rgb& pixel)
{
    std::memcpy(image.row(y).data() + static_cast<std::size_t>(x) * sizeof(Rgb), &pixel, sizeof(Rgb));
}

Viewer::Picture pictureOf(const Image& image)
{
    return Viewer::Picture(L"picture", image);
}

} // namespace

TEST(ClipboardPictureTest, rows_keepTheOrderFromTheBottomUp)
{
    Image image = floatImage(2, 3, 1.0f);
    setPixel(image, 1, 0, {1.0f, 0.0f, 0.0f, 1.0f});
    setPixel(image, 0, 2, {0.0f, 1.0f, 0.0f, 1.0f});
    const BitmapImpl<Rgb> picture = clipboardPicture(pictureOf(image), {}, BLACK);
    ASSERT_EQ(picture.width(), 2);
    ASSERT_EQ(picture.height(), 3);
    EXPECT_EQ(picture.at(1, 0).r, 1.0f);
    EXPECT_EQ(picture.at(0, 2).g, 1.0f);
}

TEST(ClipboardPictureTest, transparency_showsTheBackground)
{
    Image image = floatImage(3, 1, 1.0f);
    setPixel(image, 0, 0, {1.0f, 1.0f, 1.0f, 0.25f});
    setPixel(image, 1, 0, {0.5f, 0.5f, 0.5f, 7.0f});
    setPixel(image, 2, 0, {0.5f, 0.5f, 0.5f, -7.0f});
    const BitmapImpl<Rgb> picture = clipboardPicture(pictureOf(image), {}, {255, 0, 0});
    EXPECT_EQ(picture.at(0, 0), (Rgb{1.0f, 0.25f, 0.25f, 1.0f}));
    EXPECT_EQ(picture.at(1, 0), (Rgb{0.5f, 0.5f, 0.5f, 1.0f})) << "more than opaque";
    EXPECT_EQ(picture.at(2, 0), (Rgb{1.0f, 0.0f, 0.0f, 1.0f})) << "less than transparent";
}

TEST(ClipboardPictureTest, whatCannotBeShown_isClampedAndNanIsBlack)
{
    Image image = floatImage(1, 1, 1.0f);
    setPixel(image, 0, 0, {NAN, INFINITY, -3.0f, 1.0f});
    EXPECT_EQ(clipboardPicture(pictureOf(image), {}, BLACK).at(0, 0), (Rgb{0.0f, 1.0f, 0.0f, 1.0f}));
}

TEST(ClipboardPictureTest, linearLight_becomesTheBytesThatAreShown)
{
    Image image = floatImage(64, 1, 2.2f);
    for (std::int32_t x = 0; x < 64; ++x) {
        const float value = static_cast<float>(x) / 60.0f;
        setPixel(image, x, 0, {value, value * 0.5f, value * 0.1f, 1.0f});
    }
    const Viewer::Picture shown(L"linear", image);
    const wxImage bytes = BitmapConverter::zephraImageToWxImage(shown.image());
    const DeviceIndependentBitmap copied(clipboardPicture(pictureOf(image), {}, BLACK));
    const std::uint8_t* bgr = copied.row(0);
    for (int x = 0; x < 64; ++x, bgr += 3)
        EXPECT_EQ(Tests::pixelAt(bytes, x, 0), (RgbBytes{bgr[2], bgr[1], bgr[0]})) << x;
}

TEST(ClipboardPictureTest, settings_changeTheCopyAsTheyChangeTheView)
{
    Image image = floatImage(1, 1, 2.0f);
    setPixel(image, 0, 0, {0.0625f, 0.25f, 0.0f, 0.5f});
    const Rgb brighter = clipboardPicture(pictureOf(image), {.exposure = 2.0f}, BLACK).at(0, 0);
    const float factor =
        std::exp2(2.0f * 2.0f / 2.2f); // makes the light, which has the gamma 2.2, four times as bright
    EXPECT_FLOAT_EQ(brighter.r, std::sqrt(0.0625f * factor * 0.5f));
    EXPECT_FLOAT_EQ(brighter.g, std::sqrt(0.25f * factor * 0.5f));
    const Rgb green = clipboardPicture(pictureOf(image), {.channel = Viewer::Channel::GREEN}, BLACK).at(0, 0);
    EXPECT_EQ(green, (Rgb{0.5f, 0.5f, 0.5f, 1.0f})) << "a channel has no transparency";
}

TEST(ClipboardPictureTest, associatedColours_areAddedToTheLightBehind)
{
    Image image = floatImage(2, 1, 2.2f);
    setPixel(image, 0, 0, {0.25f, 0.125f, 0.0f, 0.5f});
    setPixel(image, 1, 0, {0.25f, 0.0f, 0.0f, 0.0f});
    const Viewer::Picture picture(L"associated", image, Viewer::AlphaKind::ASSOCIATED);
    const BitmapImpl<Rgb> copy = clipboardPicture(picture, {}, {0, 255, 0});
    EXPECT_FLOAT_EQ(copy.at(0, 0).r, std::pow(0.25f, 1.0f / 2.2f));
    EXPECT_FLOAT_EQ(copy.at(0, 0).g, std::pow(0.625f, 1.0f / 2.2f));
    EXPECT_FLOAT_EQ(copy.at(1, 0).r, std::pow(0.25f, 1.0f / 2.2f)) << "light without alpha is not lost";
    EXPECT_EQ(copy.at(1, 0).g, 1.0f);
}
