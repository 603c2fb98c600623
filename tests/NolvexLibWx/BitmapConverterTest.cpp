// SPDX-License-Identifier: MIT
#include "NolvexLibWx/BitmapConverter.h"

#include "NolvexLibImage/Image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

using namespace Nolvex;

namespace {

Image makeImage(int width, int height, PixelFormat format, float gamma)
{
    auto image = Image::create(width, height, format, gamma);
    EXPECT_TRUE(image.hasValue());
    return std::move(*image);
}

void setFloats(Image& image, int x, int y, const Rgb& colour)
{
    const auto channels =
        static_cast<std::size_t>(Image::getPixelFormatChannelCount(image.descriptor().format));
    std::memcpy(image.row(y).data() + static_cast<std::size_t>(x) * channels * sizeof(float), &colour,
                channels * sizeof(float));
}

// Converts a single channel by the documented rule.
int referenceByte(float value, float exponent)
{
    if (exponent != 1.0f)
        value = std::pow(value, exponent);
    const float clamped = std::isnan(value) ? 0.0f : std::max(0.0f, std::min(1.0f, value));
    return static_cast<int>(std::nearbyint(clamped * 255.0f));
}

void expectReference(const Image& image)
{
    const wxImage shown = BitmapConverter::zephraImageToWxImage(image);
    const ImageDescriptor& descriptor = image.descriptor();
    const float exponent = 1.0f / descriptor.gamma;
    const bool alpha = Image::getPixelFormatChannelCount(descriptor.format) == 4;
    ASSERT_TRUE(shown.IsOk());
    ASSERT_EQ(shown.GetSize(), wxSize(descriptor.width, descriptor.height));
    ASSERT_EQ(shown.HasAlpha(), alpha);
    for (int y = 0; y < descriptor.height; ++y) {
        for (int x = 0; x < descriptor.width; ++x) {
            const Rgb colour = image.getRgba(x, y);
            const int row = descriptor.height - 1 - y;
            ASSERT_EQ(shown.GetRed(x, row), referenceByte(colour.r, exponent))
                << x << ", " << y << ": " << colour.r;
            ASSERT_EQ(shown.GetGreen(x, row), referenceByte(colour.g, exponent));
            ASSERT_EQ(shown.GetBlue(x, row), referenceByte(colour.b, exponent));
            ASSERT_EQ(alpha ? shown.GetAlpha(x, row) : 0, alpha ? referenceByte(colour.a, exponent) : 0);
        }
    }
}

Image randomFloats(int width, int height, PixelFormat format, float gamma)
{
    Image image = makeImage(width, height, format, gamma);
    std::mt19937 random(7);
    std::uniform_real_distribution<float> values(-0.2f, 1.4f);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            setFloats(image, x, y, {values(random), values(random), values(random), values(random)});
    }
    setFloats(image, 0, 0, {NAN, INFINITY, -INFINITY, NAN});
    return image;
}

} // namespace

TEST(BitmapConverterTest, gammaOne_copiesByTheColourRule)
{
    expectReference(randomFloats(37, 11, PixelFormat::FLOAT32_RGBA, 1.0f));
    expectReference(randomFloats(37, 11, PixelFormat::FLOAT32_RGB, 1.0f));
    expectReference(randomFloats(37, 11, PixelFormat::FLOAT32_GREY, 1.0f));
}

TEST(BitmapConverterTest, gamma_raisesEveryChannelAlphaIncluded)
{
    Image image = makeImage(1, 1, PixelFormat::FLOAT32_RGBA, 2.2f);
    setFloats(image, 0, 0, {0.5f, 0.25f, 0.0f, 0.5f});
    const wxImage shown = BitmapConverter::zephraImageToWxImage(image);
    EXPECT_EQ(shown.GetRed(0, 0), 186);
    EXPECT_EQ(shown.GetGreen(0, 0), 136);
    EXPECT_EQ(shown.GetBlue(0, 0), 0);
    EXPECT_EQ(shown.GetAlpha(0, 0), 186);
}

TEST(BitmapConverterTest, gammaOfLargeAndSmallImages_isThePlatformsPower)
{
    for (const float gamma : {2.2f, 1.8f, 0.45f, 10.0f, 0.5f, 0.25f}) {
        expectReference(randomFloats(3, 2, PixelFormat::FLOAT32_RGBA, gamma));
        expectReference(randomFloats(301, 203, PixelFormat::FLOAT32_RGBA, gamma));
        expectReference(randomFloats(301, 203, PixelFormat::FLOAT32_RGB, gamma));
    }
}

TEST(BitmapConverterTest, oddGammas_areThePlatformsPowerToo)
{
    for (const float gamma : {0.0f, -1.0f, -2.2f, INFINITY, NAN, 1e-30f})
        expectReference(randomFloats(19, 7, PixelFormat::FLOAT32_RGBA, gamma));
}

TEST(BitmapConverterTest, bottomRow_comesFirstInTheImageAndLastOnTheScreen)
{
    Image image = makeImage(1, 3, PixelFormat::UINT8_GREY, 1.0f);
    for (int y = 0; y < 3; ++y)
        image.row(y)[0] = static_cast<std::byte>(100 + y);
    const wxImage shown = BitmapConverter::zephraImageToWxImage(image);
    EXPECT_EQ(shown.GetRed(0, 0), 102);
    EXPECT_EQ(shown.GetRed(0, 1), 101);
    EXPECT_EQ(shown.GetRed(0, 2), 100);
}

TEST(BitmapConverterTest, integerFormats_followTheSameRule)
{
    for (const PixelFormat format :
         {PixelFormat::UINT8_GREY, PixelFormat::UINT8_RGB, PixelFormat::UINT8_RGBA, PixelFormat::UINT16_GREY,
          PixelFormat::UINT16_RGB, PixelFormat::UINT16_RGBA}) {
        for (const float gamma : {1.0f, 2.2f}) {
            Image image = makeImage(64, 40, format, gamma);
            std::mt19937 random(3);
            for (int y = 0; y < 40; ++y)
                std::generate(image.row(y).begin(), image.row(y).end(),
                              [&] { return static_cast<std::byte>(random() & 0xff); });
            expectReference(image);
        }
    }
}

TEST(BitmapConverterTest, halfFormats_followTheSameRule)
{
    for (const PixelFormat format :
         {PixelFormat::FLOAT16_GREY, PixelFormat::FLOAT16_RGB, PixelFormat::FLOAT16_RGBA}) {
        for (const float gamma : {1.0f, 2.2f}) {
            Image image = makeImage(64, 40, format, gamma);
            std::mt19937 random(5);
            for (int y = 0; y < 40; ++y)
                std::generate(image.row(y).begin(), image.row(y).end(),
                              [&] { return static_cast<std::byte>(random() & 0xff); });
            expectReference(image);
        }
    }
}

TEST(BitmapConverterTest, eightBitImage_isCopiedByteForByte)
{
    Image image = makeImage(256, 1, PixelFormat::UINT8_RGBA, 1.0f);
    for (std::size_t i = 0; i < image.row(0).size(); ++i)
        image.row(0)[i] = static_cast<std::byte>(i * 31 % 256);
    const wxImage shown = BitmapConverter::zephraImageToWxImage(image);
    for (int x = 0; x < 256; ++x) {
        EXPECT_EQ(shown.GetRed(x, 0), 4 * x * 31 % 256);
        EXPECT_EQ(shown.GetGreen(x, 0), (4 * x + 1) * 31 % 256);
        EXPECT_EQ(shown.GetBlue(x, 0), (4 * x + 2) * 31 % 256);
        EXPECT_EQ(shown.GetAlpha(x, 0), (4 * x + 3) * 31 % 256);
    }
}

TEST(BitmapConverterTest, bitmap_hasTheImagesPixels)
{
    const Image image = randomFloats(20, 10, PixelFormat::FLOAT32_RGB, 2.2f);
    const wxImage expected = BitmapConverter::zephraImageToWxImage(image);
    const wxBitmap bitmap = BitmapConverter::zephraImageToWxBitmap(image);
    ASSERT_TRUE(bitmap.IsOk());
    const wxImage shown = bitmap.ConvertToImage();
    EXPECT_EQ(std::memcmp(shown.GetData(), expected.GetData(), 20 * 10 * 3), 0);
}

TEST(BitmapConverterTest, imageMovedFrom_givesAnInvalidPicture)
{
    Image image = makeImage(4, 4, PixelFormat::UINT8_RGB, 1.0f);
    const Image moved = std::move(image);
    EXPECT_FALSE(BitmapConverter::zephraImageToWxImage(image).IsOk()); // NOLINT(bugprone-use-after-move)
    EXPECT_FALSE(BitmapConverter::zephraImageToWxBitmap(image).IsOk());
}
