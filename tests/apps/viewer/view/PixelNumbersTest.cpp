// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelNumbers.h"

#include "apps/viewer/view/ShortNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

using namespace Nolvex;
using Viewer::Channel;
using Viewer::numbersOf;
using Viewer::shortNumber;

namespace {

Image pixel(PixelFormat format, const Rgb& value)
{
    Image image = *Image::create(1, 1, format, 2.2f);
    std::memcpy(image.row(0).data(), &value, image.rowBytes());
    return image;
}

} // namespace

TEST(PixelNumbersTest, shortNumber_hasFourDigits)
{
    EXPECT_EQ(shortNumber(0.0f), "0");
    EXPECT_EQ(shortNumber(0.123456f), "0.1235");
    EXPECT_EQ(shortNumber(-17.0f), "-17");
    EXPECT_EQ(shortNumber(123456.0f), "1.235e+05");
    EXPECT_EQ(shortNumber(1.17549e-38f), "1.175e-38");
    EXPECT_EQ(shortNumber(std::numeric_limits<float>::infinity()), "inf");
    EXPECT_EQ(shortNumber(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(shortNumber(std::nanf("")), "nan");
    EXPECT_EQ(shortNumber(-std::nanf("")), "nan");
}

TEST(PixelNumbersTest, numbers_areALineForEachChannel)
{
    const Rgb value{0.25f, -1.0f, std::nanf(""), 0.5f};
    EXPECT_EQ(numbersOf(pixel(PixelFormat::FLOAT32_RGBA, value), {}, {0, 0}), "0.25\n-1\nnan\n0.5");
    EXPECT_EQ(numbersOf(pixel(PixelFormat::FLOAT32_RGB, value), {}, {0, 0}), "0.25\n-1\nnan");
    EXPECT_EQ(numbersOf(pixel(PixelFormat::FLOAT32_GREY, value), {}, {0, 0}), "0.25");
}

TEST(PixelNumbersTest, channel_isTheOnlyLine)
{
    const Image image = pixel(PixelFormat::FLOAT32_RGBA, {0.25f, 2.0f, 4.0f, 0.5f});
    EXPECT_EQ(numbersOf(image, {.channel = Channel::RED}, {0, 0}), "0.25");
    EXPECT_EQ(numbersOf(image, {.channel = Channel::GREEN}, {0, 0}), "2");
    EXPECT_EQ(numbersOf(image, {.channel = Channel::BLUE}, {0, 0}), "4");
    EXPECT_EQ(numbersOf(image, {.channel = Channel::ALPHA}, {0, 0}), "0.5");
    EXPECT_EQ(numbersOf(image, {.channel = Channel::LUMINANCE}, {0, 0}), "1.772");
    EXPECT_EQ(numbersOf(image, {.exposure = 3.0f, .channel = Channel::RED}, {0, 0}), "0.25")
        << "the numbers are those of the picture";
}

TEST(PixelNumbersTest, squares_touchEachOther)
{
    const Viewer::PixelSquares squares{70.4, {-12.3, 5.0}};
    for (int i = 0; i < 20; ++i) {
        const wxRect square = squares.square({i, i});
        const wxRect next = squares.square({i + 1, i + 1});
        EXPECT_EQ(square.GetRight() + 1, next.x);
        EXPECT_EQ(square.GetBottom() + 1, next.y);
        EXPECT_NEAR(square.width, 70.4, 1.0);
    }
}
