// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PsdReader.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

using namespace Nolvex;
using namespace std::string_literals;
using Viewer::PsdReader;

namespace {

constexpr int WIDTH = 19;
constexpr int HEIGHT = 7;

/// What a file of the tests is like.
struct Kind
{
    int bits = 8;
    int mode = 3; // RGB; 1 is grey
    int channels = 3;
    bool isPacked = false;
    bool isLarge = false;
    int layers = 0; // below 0 if the channel after the colours is the transparency of the layers
};

std::string number(std::uint64_t value, int bytes)
{
    std::string text;
    for (int i = bytes; i-- > 0;)
        text += static_cast<char>(value >> 8 * i);
    return text;
}

/// Returns values from 0 to 1, of which neighbours may be equal.
float valueAt(int x, int y, int channel)
{
    return static_cast<float>((x / 4 * 40 + y * 20 + channel * 55) % 256) / 255.0f;
}

std::string sample(float value, int bits)
{
    if (bits == 32)
        return number(std::bit_cast<std::uint32_t>(value), 4);
    const float white = bits == 16 ? 65535.0f : 255.0f;
    return number(static_cast<std::uint64_t>(std::lround(value * white)), bits / 8);
}

std::string packed(const std::string& row)
{
    std::string text(1, '\x80'); // a byte that stands for nothing
    for (std::size_t at = 0; at < row.size();) {
        std::size_t run = 1;
        while (run < 128 && at + run < row.size() && row[at + run] == row[at])
            ++run;
        if (run > 1)
            text += static_cast<char>(257 - run) + row.substr(at, 1);
        else
            text += "\0"s + row[at];
        at += run;
    }
    return text;
}

template<class Value>
std::string fileOf(const Kind& kind, const Value& valueOfPixel)
{
    const int lengthBytes = kind.isLarge ? 8 : 4;
    std::string lengths;
    std::string data;
    for (int channel = 0; channel < kind.channels; ++channel) {
        for (int y = 0; y < HEIGHT; ++y) {
            std::string row;
            for (int x = 0; x < WIDTH; ++x)
                row += sample(valueOfPixel(x, y, channel), kind.bits);
            if (kind.isPacked)
                row = packed(row);
            lengths += number(row.size(), kind.isLarge ? 4 : 2);
            data += row;
        }
    }
    std::string layers;
    if (kind.layers != 0)
        layers = number(2, lengthBytes) + number(static_cast<std::uint16_t>(kind.layers), 2);
    return "8BPS" + number(kind.isLarge ? 2 : 1, 2) + number(0, 6) + number(kind.channels, 2) +
           number(HEIGHT, 4) + number(WIDTH, 4) + number(kind.bits, 2) + number(kind.mode, 2) + number(0, 4) +
           number(5, 4) + "other" + number(layers.size(), lengthBytes) + layers +
           number(kind.isPacked ? 1 : 0, 2) + (kind.isPacked ? lengths : "") + data;
}

Expected<Viewer::ReadImage, String> read(const std::string& file)
{
    const ArrayView<const std::byte> bytes(reinterpret_cast<const std::byte*>(file.data()), file.size());
    return PsdReader().knows(bytes) ? PsdReader().read(bytes, 0, {}) : Unexpected{String(L"unknown")};
}

float channelOf(const Rgb& pixel, int channel)
{
    return channel == 0 ? pixel.r : channel == 1 ? pixel.g : channel == 2 ? pixel.b : pixel.a;
}

void expectPixels(const Kind& kind, PixelFormat format, const Array<int>& channels)
{
    const auto image = read(fileOf(kind, valueAt));
    ASSERT_TRUE(image.hasValue()) << image.error().toUtf8();
    EXPECT_EQ(image->image.descriptor().format, format);
    EXPECT_EQ(image->image.descriptor().gamma, kind.bits == 32 ? 2.2f : 1.0f);
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            const Rgb pixel = image->image.getRgba(x, HEIGHT - 1 - y);
            for (std::size_t i = 0; i < channels.size(); ++i)
                ASSERT_NEAR(channelOf(pixel, static_cast<int>(i)), valueAt(x, y, channels[i]), 1e-5f)
                    << x << ", " << y << ", channel " << i << ", " << kind.bits << " bits";
        }
    }
}

Array<Kind> kinds()
{
    Array<Kind> all;
    for (const int bits : {8, 16, 32}) {
        for (const bool isPacked : {false, true}) {
            for (const bool isLarge : {false, true})
                all.push_back({.bits = bits, .isPacked = isPacked, .isLarge = isLarge});
        }
    }
    return all;
}

} // namespace

TEST(PsdReaderTest, coloursOfAllKinds_areRead)
{
    for (const Kind& kind : kinds())
        expectPixels(kind,
                     kind.bits == 8    ? PixelFormat::UINT8_RGB
                     : kind.bits == 16 ? PixelFormat::UINT16_RGB
                                       : PixelFormat::FLOAT32_RGB,
                     {0, 1, 2});
}

TEST(PsdReaderTest, greyAndAlpha_areRead)
{
    expectPixels({.mode = 1, .channels = 1}, PixelFormat::UINT8_GREY, {0, 0, 0});
    expectPixels({.bits = 16, .mode = 1, .channels = 2}, PixelFormat::UINT16_RGBA, {0, 0, 0, 1});
    expectPixels({.bits = 32, .channels = 4, .isPacked = true}, PixelFormat::FLOAT32_RGBA, {0, 1, 2, 3});
}

TEST(PsdReaderTest, whiteBehindTransparentLayers_isRemoved)
{
    const auto colour = [](int channel) { return static_cast<float>(channel) * 0.4f; };
    const auto alpha = [](int x, int y) { return static_cast<float>(x + y) / (WIDTH + HEIGHT); };
    for (const int bits : {8, 16, 32}) {
        const auto image =
            read(fileOf({.bits = bits, .channels = 4, .layers = -2}, [&](int x, int y, int channel) {
                return channel == 3 ? alpha(x, y) : colour(channel) * alpha(x, y) + 1.0f - alpha(x, y);
            }));
        ASSERT_TRUE(image.hasValue());
        for (int x = WIDTH / 2; x < WIDTH; ++x) {
            const Rgb pixel = image->image.getRgba(x, 0);
            const float tolerance = bits == 8 ? 0.02f : 0.001f;
            EXPECT_NEAR(pixel.r, 0.0f, tolerance);
            EXPECT_NEAR(pixel.g, 0.4f, tolerance);
            EXPECT_NEAR(pixel.b, 0.8f, tolerance);
            EXPECT_NEAR(pixel.a, alpha(x, HEIGHT - 1), tolerance);
        }
    }
}

TEST(PsdReaderTest, layersAndFurtherChannels_areTold)
{
    EXPECT_TRUE(read(fileOf({}, valueAt))->omissions.empty());
    EXPECT_EQ(read(fileOf({.channels = 4, .layers = 2}, valueAt))->omissions,
              (Array<String>{L"It has one more channel, which is not shown.",
                             L"It has 2 layers, of which the merged image is shown."}));
    EXPECT_EQ(read(fileOf({.channels = 5}, valueAt))->omissions,
              (Array<String>{L"It has 2 more channels, which are not shown."}));
}

TEST(PsdReaderTest, otherColours_areRefusedWithAReason)
{
    EXPECT_EQ(read(fileOf({.mode = 4, .channels = 4}, valueAt)).error(),
              String(L"its colours are neither grey nor RGB"));
    EXPECT_EQ(read(fileOf({.mode = 3, .channels = 2}, valueAt)).error(),
              String(L"it has fewer channels than its colours need"));
    std::string file = fileOf({}, valueAt);
    file[23] = 1; // bits of a channel
    EXPECT_EQ(read(file).error(), String(L"it does not have 8, 16 or 32 bits for each channel"));
    file = fileOf({}, valueAt);
    file.replace(14, 8, number(300'000, 4) + number(300'000, 4));
    EXPECT_EQ(read(file).error(), String(L"it is damaged or cut off"));
}

TEST(PsdReaderTest, everyCut_isAnError)
{
    for (const Kind& kind : kinds()) {
        const std::string whole = fileOf(kind, valueAt);
        for (std::size_t length = 0; length < whole.size(); ++length)
            ASSERT_FALSE(read(whole.substr(0, length)).hasValue()) << length;
    }
}

TEST(PsdReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(38); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const Kind& kind : kinds()) {
        const std::string whole = fileOf(kind, valueAt);
        for (int run = 0; run < 500; ++run) {
            std::string file = whole;
            for (int i = 0; i < 3; ++i)
                file[random() % file.size()] = static_cast<char>(random());
            const auto image = read(file);
            EXPECT_TRUE(image.hasValue() || !image.error().isEmpty());
        }
    }
}
