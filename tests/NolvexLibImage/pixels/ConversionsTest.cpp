// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/Conversions.h"

#include "AtEachLevel.h"
#include "NolvexLib/StopException.h"
#include "Reference.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <thread>
#include <vector>

namespace Nolvex::Pixels {

namespace {

using Bytes = std::vector<std::uint8_t>;
using ToBytes = void (*)(const Rgb*, std::uint8_t*, std::size_t);
using ToFloats = void (*)(const std::uint8_t*, Rgb*, std::size_t);

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float BYTE_STEP = std::bit_cast<float>(0x3B808081U);
constexpr float WORD_STEP = std::bit_cast<float>(0x37800080U);

Bytes converted(ToBytes convert, const Rgb& pixel, std::size_t size)
{
    Bytes bytes(size);
    convert(&pixel, bytes.data(), 1);
    return bytes;
}

Rgb converted(ToFloats convert, const Bytes& bytes)
{
    Rgb pixel;
    convert(bytes.data(), &pixel, 1);
    return pixel;
}

template<class Number, std::size_t COUNT>
Rgb readPixel(PixelFormat format, const std::array<Number, COUNT>& channels)
{
    Rgb pixel;
    toRgb(format, reinterpret_cast<const std::byte*>(channels.data()), &pixel, 1);
    return pixel;
}

std::vector<Rgb> gradient(std::size_t count)
{
    std::vector<Rgb> pixels(count);
    for (std::size_t i = 0; i < count; ++i) {
        const float value = static_cast<float>(i) / static_cast<float>(count);
        pixels[i] = {value, 1 - value, value * value, value / 2};
    }
    return pixels;
}

} // namespace

class ConversionsTest : public AtEachLevel
{};

INSTANTIATE_TEST_SUITE_P(Levels, ConversionsTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(ConversionsTest, rgbTo8_writesTheBytesInTheOrderOfTheName)
{
    const Rgb pixel = {0.25f, 0.5f, 1.0f, 0.5f};
    EXPECT_EQ(converted(rgbToRgb8, pixel, 3), (Bytes{64, 128, 255}));
    EXPECT_EQ(converted(rgbToBgr8, pixel, 3), (Bytes{255, 128, 64}));
    EXPECT_EQ(converted(rgbToRgba8, pixel, 4), (Bytes{64, 128, 255, 127}));
    EXPECT_EQ(converted(rgbToBgra8, pixel, 4), (Bytes{255, 128, 64, 127}));
}

TEST_P(ConversionsTest, rgbToRgb8Alpha8_roundsAlphaLikeAColour)
{
    const Rgb pixel = {0.25f, 0.5f, 1.0f, 0.5f};
    Bytes rgb(3);
    Bytes alpha(1);
    rgbToRgb8Alpha8(&pixel, rgb.data(), alpha.data(), 1);
    EXPECT_EQ(rgb, (Bytes{64, 128, 255}));
    EXPECT_EQ(alpha, (Bytes{128}));
}

TEST_P(ConversionsTest, rgbTo8_ofValuesThatCannotBeDisplayed_clampsThem)
{
    EXPECT_EQ(converted(rgbToRgba8, {-0.2f, 1.7f, NOT_A_NUMBER, NOT_A_NUMBER}, 4), (Bytes{0, 255, 0, 0}));
    EXPECT_EQ(converted(rgbToRgba8, {INFINITE, -INFINITE, 1e30f, INFINITE}, 4), (Bytes{255, 0, 255, 255}));
    EXPECT_EQ(converted(rgbToRgba8, {-0.0f, 1e-40f, -1e30f, -INFINITE}, 4), (Bytes{0, 0, 0, 0}));
}

TEST_P(ConversionsTest, rgbTo8_halfwayBetweenTwoBytes_roundsToTheEvenByte)
{
    // The products with 255 are exactly 0.5, 1.5 and 126.5 in single precision.
    const Rgb pixel = {0.5f / 255.0f, 1.5f / 255.0f, 126.5f / 255.0f, 0.0f};
    ASSERT_EQ(pixel.r * 255.0f, 0.5f);
    ASSERT_EQ(pixel.g * 255.0f, 1.5f);
    ASSERT_EQ(pixel.b * 255.0f, 126.5f);
    EXPECT_EQ(converted(rgbToRgb8, pixel, 3), (Bytes{0, 2, 126}));
}

TEST_P(ConversionsTest, bytesToRgb_multiplyAndTakeTheOrderOfTheName)
{
    const float low = 10 * BYTE_STEP;
    const float middle = 100 * BYTE_STEP;
    EXPECT_EQ(converted(rgb8ToRgb, {10, 100, 255}), (Rgb{low, middle, 1, 1}));
    EXPECT_EQ(converted(bgr8ToRgb, {10, 100, 255}), (Rgb{1, middle, low, 1}));
    EXPECT_EQ(converted(rgba8ToRgb, {10, 100, 255, 0}), (Rgb{low, middle, 1, 0}));
    EXPECT_EQ(converted(bgra8ToRgb, {10, 100, 255, 100}), (Rgb{1, middle, low, middle}));
}

TEST_P(ConversionsTest, toRgb_ofIntegers_givesFractionsAndRepeatsGrey)
{
    const float byte = 7 * BYTE_STEP;
    EXPECT_EQ(readPixel(PixelFormat::UINT8_GREY, std::array<std::uint8_t, 1>{7}), (Rgb{byte, byte, byte, 1}));
    EXPECT_EQ(readPixel(PixelFormat::UINT8_RGBA, std::array<std::uint8_t, 4>{7, 0, 255, 7}),
              (Rgb{byte, 0, 1, byte}));
    const float word = 777 * WORD_STEP;
    EXPECT_EQ(readPixel(PixelFormat::UINT16_GREY, std::array<std::uint16_t, 1>{777}),
              (Rgb{word, word, word, 1}));
    EXPECT_EQ(readPixel(PixelFormat::UINT16_RGB, std::array<std::uint16_t, 3>{777, 0, 65535}),
              (Rgb{word, 0, 1, 1}));
    EXPECT_EQ(readPixel(PixelFormat::UINT16_RGBA, std::array<std::uint16_t, 4>{0, 777, 65535, 777}),
              (Rgb{0, word, 1, word}));
}

TEST_P(ConversionsTest, toRgb_ofHalves_keepsTheirValues)
{
    const auto half = [](std::uint16_t bits) {
        return readPixel(PixelFormat::FLOAT16_GREY, std::array<std::uint16_t, 1>{bits}).r;
    };
    EXPECT_EQ(half(0x3C00), 1.0f);
    EXPECT_EQ(half(0xC000), -2.0f);
    EXPECT_EQ(half(0x7BFF), 65504.0f);
    EXPECT_EQ(half(0x0001), std::ldexp(1.0f, -24));
    EXPECT_EQ(half(0x03FF), 1023 * std::ldexp(1.0f, -24));
    EXPECT_EQ(half(0x0400), std::ldexp(1.0f, -14));
    EXPECT_EQ(half(0x7C00), INFINITE);
    EXPECT_EQ(half(0xFC00), -INFINITE);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(half(0x8000)), 0x8000'0000U);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(half(0x7D00)), 0x7FE0'0000U) << "a signalling NaN becomes quiet";
}

TEST_P(ConversionsTest, toRgb_ofFloats_keepsTheirBits)
{
    const float signalling = std::bit_cast<float>(0x7F80'0001U);
    const std::array<float, 4> channels = {-0.0f, signalling, 1e-44f, -INFINITE};
    const Rgb pixel = readPixel(PixelFormat::FLOAT32_RGBA, channels);
    EXPECT_EQ(std::memcmp(&pixel, channels.data(), sizeof pixel), 0);
    EXPECT_EQ(readPixel(PixelFormat::FLOAT32_RGB, std::array<float, 3>{3, -4, 5}), (Rgb{3, -4, 5, 1}));
    EXPECT_EQ(readPixel(PixelFormat::FLOAT32_GREY, std::array<float, 1>{-7}), (Rgb{-7, -7, -7, 1}));
}

TEST_P(ConversionsTest, noPixels_touchNothing)
{
    for (const ToBytes convert : {rgbToRgb8, rgbToBgr8, rgbToRgba8, rgbToBgra8})
        convert(nullptr, nullptr, 0);
    for (const ToFloats convert : {rgb8ToRgb, bgr8ToRgb, rgba8ToRgb, bgra8ToRgb})
        convert(nullptr, nullptr, 0);
    rgbToRgb8Alpha8(nullptr, nullptr, nullptr, 0);
    for (int format = 0; format < PIXEL_FORMAT_COUNT; ++format)
        toRgb(static_cast<PixelFormat>(format), nullptr, nullptr, 0);
}

TEST_P(ConversionsTest, toRgb_ofAnInvalidFormat_isAProgrammingError)
{
    const std::byte source[16] = {};
    Rgb pixel;
    EXPECT_THROW(toRgb(static_cast<PixelFormat>(PIXEL_FORMAT_COUNT), source, &pixel, 1), StopException);
    EXPECT_THROW(toRgb(static_cast<PixelFormat>(-1), source, &pixel, 1), StopException);
}

TEST_P(ConversionsTest, severalThreads_writeTheSameBytes)
{
    const std::vector<Rgb> pixels = gradient(10'007);
    Bytes expected(pixels.size() * 4);
    rgbToRgba8(pixels.data(), expected.data(), pixels.size());
    std::array<Bytes, 4> results;
    std::vector<std::thread> threads;
    for (Bytes& result : results) {
        threads.emplace_back([&result, &pixels] {
            result.resize(pixels.size() * 4);
            rgbToRgba8(pixels.data(), result.data(), pixels.size());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const Bytes& result : results)
        EXPECT_TRUE(result == expected);
}

TEST_P(ConversionsTest, displayableColours_returnWithinHalfAStep)
{
    const std::vector<Rgb> pixels = gradient(1021);
    Bytes bytes(pixels.size() * 4);
    rgbToBgra8(pixels.data(), bytes.data(), pixels.size());
    std::vector<Rgb> back(pixels.size());
    bgra8ToRgb(bytes.data(), back.data(), back.size());
    constexpr float HALF_A_STEP = 0.5f / 255.0f + 1e-6f;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        ASSERT_NEAR(back[i].r, pixels[i].r, HALF_A_STEP) << i;
        ASSERT_NEAR(back[i].g, pixels[i].g, HALF_A_STEP) << i;
        ASSERT_NEAR(back[i].b, pixels[i].b, HALF_A_STEP) << i;
        // The bytes are truncated, so that a value may come back up to a whole step lower.
        ASSERT_LE(back[i].a, pixels[i].a + 1e-6f) << i;
        ASSERT_GT(back[i].a, pixels[i].a - 2 * HALF_A_STEP) << i;
    }
}

} // namespace Nolvex::Pixels
