// SPDX-License-Identifier: MIT
#include "NolvexLibWx/BitmapConversions.h"

#include "support/NativeTraits.h"

#include <wx/image.h>
#include <wx/rawbmp.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>

using namespace Nolvex;
using Wx::toRgbBitmap;
using Wx::toWxBitmap;

namespace {

using Bytes = std::array<int, 4>;

Bytes rawPixel(wxBitmap& bitmap, int x, int y)
{
    if (bitmap.GetDepth() == 32) {
        wxAlphaPixelData data(bitmap);
        wxAlphaPixelData::Iterator pixel(data);
        pixel.MoveTo(data, x, y);
        return {pixel.Red(), pixel.Green(), pixel.Blue(), pixel.Alpha()};
    }
    wxNativePixelData data(bitmap);
    wxNativePixelData::Iterator pixel(data);
    pixel.MoveTo(data, x, y);
    return {pixel.Red(), pixel.Green(), pixel.Blue(), 255};
}

Bytes converted(const Rgb& colour, bool withAlpha)
{
    wxBitmap bitmap = toWxBitmap(BitmapImpl<Rgb>(1, 1, colour), withAlpha);
    return rawPixel(bitmap, 0, 0);
}

// Returns an image whose pixels all differ and have colours that bytes hold exactly.
BitmapImpl<Rgb> byteExactImage(int width, int height)
{
    constexpr float SCALE = 1.0f / 255.0f;
    BitmapImpl<Rgb> image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.at(x, y) = {
                static_cast<float>((7 * x) % 256) * SCALE, static_cast<float>((11 * y) % 256) * SCALE,
                static_cast<float>((x * y) % 256) * SCALE, static_cast<float>((3 * x + y) % 256) * SCALE};
    }
    return image;
}

} // namespace

TEST(BitmapConversionsTest, emptyImages_giveAnInvalidBitmap)
{
    EXPECT_FALSE(toWxBitmap(BitmapImpl<Rgb>(0, 5), false).IsOk());
    EXPECT_FALSE(toWxBitmap(BitmapImpl<Rgb>(5, 0), true).IsOk());
    EXPECT_FALSE(toWxBitmap(BitmapImpl<Rgb>(-3, -3), true).IsOk());
    EXPECT_FALSE(toWxBitmap(BitmapImpl<Rgb>(), false).IsOk());
}

TEST(BitmapConversionsTest, toWxBitmap_hasTheDepthAskedFor)
{
    EXPECT_EQ(toWxBitmap(BitmapImpl<Rgb>(3, 2), false).GetDepth(), 24);
    const wxBitmap withAlpha = toWxBitmap(BitmapImpl<Rgb>(3, 2), true);
    EXPECT_EQ(withAlpha.GetDepth(), 32);
    EXPECT_TRUE(withAlpha.HasAlpha());
    EXPECT_EQ(withAlpha.GetSize(), wxSize(3, 2));
}

TEST(BitmapConversionsTest, colours_areClampedAndRoundedToEven)
{
    EXPECT_EQ(converted({1.5f, -0.2f, 0.5f, 0.0f}, false), (Bytes{255, 0, 128, 255}));
    EXPECT_EQ(converted({0.999f, NAN, INFINITY, 1.0f}, true), (Bytes{255, 0, 255, 255}));
}

TEST(BitmapConversionsTest, alpha_isTruncatedAndThenClamped)
{
    EXPECT_EQ(converted({0.999f, 0.0f, 0.0f, -0.1f}, true), (Bytes{255, 0, 0, 0}));
    EXPECT_EQ(converted({0.999f, 0.0f, 0.0f, 1.2f}, true), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(converted({0.999f, 0.0f, 0.0f, 0.999f}, true), (Bytes{255, 0, 0, 254}));
    EXPECT_EQ(converted({0.5f, 0.0f, 0.0f, NAN}, true), (Bytes{128, 0, 0, 0}));
    EXPECT_EQ(converted({0.5f, 0.0f, 0.0f, 1e30f}, true), (Bytes{128, 0, 0, 255}));
}

TEST(BitmapConversionsTest, colours_areNotPremultiplied)
{
    EXPECT_EQ(converted({1.0f, 0.5f, 0.25f, 0.5f}, true), (Bytes{255, 128, 64, 127}));
}

TEST(BitmapConversionsTest, firstRow_isTheTopRow)
{
    BitmapImpl<Rgb> image(1, 2);
    image.at(0, 0) = {1.0f, 0.0f, 0.0f, 1.0f};
    image.at(0, 1) = {0.0f, 0.0f, 1.0f, 1.0f};
    for (const bool withAlpha : {false, true}) {
        const wxImage shown = toWxBitmap(image, withAlpha).ConvertToImage();
        EXPECT_EQ(shown.GetRed(0, 0), 255);
        EXPECT_EQ(shown.GetBlue(0, 1), 255);
    }
}

TEST(BitmapConversionsTest, byteExactImages_surviveTheRoundTrip)
{
    for (const auto& [width, height] : {std::pair{1, 1}, {3, 5}, {257, 33}, {64, 1}, {1, 64}}) {
        const BitmapImpl<Rgb> image = byteExactImage(width, height);
        wxBitmap bitmap = toWxBitmap(image, false);
        const auto back = toRgbBitmap(bitmap);
        ASSERT_TRUE(back.hasValue());
        ASSERT_EQ(back->size(), image.size());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                Rgb expected = image.at(x, y);
                expected.a = 1.0f;
                ASSERT_EQ(back->at(x, y), expected) << x << ", " << y;
            }
        }
    }
}

TEST(BitmapConversionsTest, alphaBytes_surviveTheRoundTripFromTheBitmap)
{
    wxBitmap bitmap = toWxBitmap(byteExactImage(40, 30), true);
    const auto image = toRgbBitmap(bitmap);
    ASSERT_TRUE(image.hasValue());
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x) {
            const Bytes raw = rawPixel(bitmap, x, y);
            constexpr float SCALE = 1.0f / 255.0f;
            const Rgb expected{static_cast<float>(raw[0]) * SCALE, static_cast<float>(raw[1]) * SCALE,
                               static_cast<float>(raw[2]) * SCALE, static_cast<float>(raw[3]) * SCALE};
            ASSERT_EQ(image->at(x, y), expected) << x << ", " << y;
        }
    }
}

TEST(BitmapConversionsTest, toRgbBitmap_ofAnInvalidBitmap_isAnEmptyImageWithoutError)
{
    wxBitmap invalid;
    const auto image = toRgbBitmap(invalid);
    ASSERT_TRUE(image.hasValue());
    EXPECT_TRUE(image->isEmpty());
}

TEST(BitmapConversionsTest, toRgbBitmap_ofOtherDepths_isTheError)
{
    for (const int depth : {1, 4, 8, 16}) {
        wxBitmap bitmap(4, 4, depth);
        ASSERT_TRUE(bitmap.IsOk()) << depth;
        ASSERT_EQ(bitmap.GetDepth(), Tests::depthOfBitmap(depth));
        const auto image = toRgbBitmap(bitmap);
        ASSERT_EQ(image.hasValue(), bitmap.GetDepth() == 24) << depth;
        EXPECT_TRUE(image.hasValue() || image.error() == L"Bitmap has unsupported bit depth.");
    }
}
