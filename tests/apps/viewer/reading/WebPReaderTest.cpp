// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WebPReader.h"

#include "NolvexLib/Array.h"

#include <gtest/gtest.h>

#include <webp/decode.h>
#include <webp/encode.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>

using namespace Nolvex;
using namespace std::string_literals;
using Viewer::WebPReader;

namespace {

constexpr int WIDTH = 37;
constexpr int HEIGHT = 21;

std::uint8_t byteAt(int x, int y, int channel)
{
    // Transparent pixels lose their colours, so that none is transparent.
    return static_cast<std::uint8_t>(channel == 3 ? 100 + x : (x * 5 + y * 7 + channel * 60) % 256);
}

std::string fileOf(int channels, bool isLossless)
{
    Array<std::uint8_t> pixels;
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            for (int channel = 0; channel < channels; ++channel)
                pixels.push_back(byteAt(x, y, channel));
        }
    }
    std::uint8_t* file = nullptr;
    std::size_t size = 0;
    if (channels == 4)
        size = isLossless ? WebPEncodeLosslessRGBA(pixels.data(), WIDTH, HEIGHT, WIDTH * 4, &file)
                          : WebPEncodeRGBA(pixels.data(), WIDTH, HEIGHT, WIDTH * 4, 90, &file);
    else
        size = isLossless ? WebPEncodeLosslessRGB(pixels.data(), WIDTH, HEIGHT, WIDTH * 3, &file)
                          : WebPEncodeRGB(pixels.data(), WIDTH, HEIGHT, WIDTH * 3, 90, &file);
    std::string text(reinterpret_cast<const char*>(file), size);
    WebPFree(file);
    return text;
}

std::string number(std::uint32_t value, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> 8 * i);
    return text;
}

std::string chunk(const std::string& name, const std::string& content)
{
    return name + number(static_cast<std::uint32_t>(content.size()), 4) + content +
           (content.size() % 2 != 0 ? "\0"s : ""s);
}

// Returns an animation of two frames on a canvas of 60 x 40 pixels.
std::string animation()
{
    const std::string still = fileOf(3, true).substr(12); // without the names RIFF and WEBP
    const std::string frame = chunk("ANMF", number(4 / 2, 3) + number(6 / 2, 3) + number(WIDTH - 1, 3) +
                                                number(HEIGHT - 1, 3) + number(100, 3) + "\0"s + still);
    const std::string chunks = chunk("VP8X", "\2\0\0\0"s + number(59, 3) + number(39, 3)) +
                               chunk("ANIM", number(0, 6)) + frame + frame;
    return chunk("RIFF", "WEBP" + chunks);
}

Expected<Viewer::ReadImage, String> read(const std::string& file)
{
    const ArrayView<const std::byte> bytes(reinterpret_cast<const std::byte*>(file.data()), file.size());
    return WebPReader().knows(bytes) ? WebPReader().read(bytes, 0, {}) : Unexpected{String(L"unknown")};
}

void expectPixels(const Viewer::ReadImage& read, int channels, float tolerance)
{
    ASSERT_EQ(read.image.descriptor(),
              (ImageDescriptor{.width = WIDTH,
                               .height = HEIGHT,
                               .format = channels == 4 ? PixelFormat::UINT8_RGBA : PixelFormat::UINT8_RGB,
                               .gamma = 1.0f}));
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            const Rgb pixel = read.image.getRgba(x, HEIGHT - 1 - y);
            ASSERT_NEAR(pixel.r * 255.0f, static_cast<float>(byteAt(x, y, 0)), tolerance) << x << ", " << y;
            ASSERT_NEAR(pixel.g * 255.0f, static_cast<float>(byteAt(x, y, 1)), tolerance);
            ASSERT_NEAR(pixel.b * 255.0f, static_cast<float>(byteAt(x, y, 2)), tolerance);
            if (channels == 4) {
                ASSERT_NEAR(pixel.a * 255.0f, static_cast<float>(byteAt(x, y, 3)), 0.01f);
            }
        }
    }
}

} // namespace

TEST(WebPReaderTest, losslessPixels_areReadExactly)
{
    for (const int channels : {3, 4}) {
        const auto image = read(fileOf(channels, true));
        ASSERT_TRUE(image.hasValue()) << image.error().toUtf8();
        expectPixels(*image, channels, 0.01f);
        EXPECT_TRUE(image->omissions.empty());
        EXPECT_FALSE(image->frameSize.has_value());
    }
}

TEST(WebPReaderTest, lossyPixels_areClose)
{
    for (const int channels : {3, 4}) {
        const auto image = read(fileOf(channels, false));
        ASSERT_TRUE(image.hasValue()) << image.error().toUtf8();
        const Rgb pixel = image->image.getRgba(10, HEIGHT - 1 - 10);
        EXPECT_NEAR(pixel.r * 255.0f, static_cast<float>(byteAt(10, 10, 0)), 60.0f);
    }
}

TEST(WebPReaderTest, animation_showsItsFirstFrameAndTellsOfTheOthers)
{
    const auto image = read(animation());
    ASSERT_TRUE(image.hasValue()) << image.error().toUtf8();
    expectPixels(*image, 3, 0.01f);
    EXPECT_EQ(image->omissions, (Array<String>{L"It has 2 frames, of which the first is shown."}));
    EXPECT_EQ(image->origin, (Pixel{4, 6}));
    EXPECT_EQ(image->frameSize, (Optional<Pixel>(Pixel{60, 40})));
}

TEST(WebPReaderTest, everyCut_isAnError)
{
    for (const std::string& whole : {fileOf(3, true), fileOf(4, true), fileOf(3, false), fileOf(4, false)}) {
        ASSERT_TRUE(read(whole).hasValue());
        // The last byte may fill up the last chunk.
        for (std::size_t length = 0; length + 1 < whole.size(); ++length)
            ASSERT_FALSE(read(whole.substr(0, length)).hasValue()) << length << " of " << whole.size();
    }
}

TEST(WebPReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(39); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const std::string& whole : {fileOf(3, true), fileOf(4, false), animation()}) {
        for (int run = 0; run < 500; ++run) {
            std::string file = whole;
            for (int i = 0; i < 3; ++i)
                file[12 + random() % (file.size() - 12)] = static_cast<char>(random());
            const auto image = read(file);
            EXPECT_TRUE(image.hasValue() || !image.error().isEmpty());
        }
    }
}
