// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrReader.h"

#include "apps/viewer/reading/ExrFiles.h"
#include "apps/viewer/reading/OpenExrReading.h"

#include <gtest/gtest.h>

#include <ImfRgbaFile.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <thread>

using namespace Nolvex;
using Tests::exactValue;
using Tests::expectPixels;
using Tests::ExrChannel;
using Tests::exrFile;
using Tests::ExrPart;
using Tests::partOf;
using Tests::readLayer;
using Viewer::OpenExrReader;
using Viewer::ReadImage;

namespace {

void expectRead(const ExrPart& part, PixelFormat format, const Array<int>& channels, float tolerance = 0.0f)
{
    const auto read = readLayer(exrFile({part}));
    ASSERT_TRUE(read.hasValue()) << read.error().toUtf8();
    EXPECT_EQ(read->image.descriptor().format, format);
    EXPECT_EQ(read->image.descriptor().gamma, 2.2f);
    expectPixels(*read, part, channels, tolerance);
}

} // namespace

TEST(OpenExrReaderTest, everyCompression_isReadInScanLinesAndTiles)
{
    for (const bool isTiled : {false, true}) {
        for (int compression = 0; compression < Imf::NUM_COMPRESSION_METHODS; ++compression) {
            ExrPart part;
            part.compression = static_cast<Imf::Compression>(compression);
            part.isTiled = isTiled;
            expectRead(part, PixelFormat::FLOAT16_RGB, {0, 1, 2},
                       compression >= Imf::B44_COMPRESSION ? 0.15f : 0.0f);
        }
    }
}

TEST(OpenExrReaderTest, manyBlocksOfRows_areReadInOrder)
{
    for (const bool isTiled : {false, true}) {
        for (const Imf::LineOrder order : {Imf::INCREASING_Y, Imf::DECREASING_Y}) {
            ExrPart part;
            part.isTiled = isTiled;
            part.order = order;
            part.data = {{-3, -700}, {5, 699}};
            expectRead(part, PixelFormat::FLOAT16_RGB, {0, 1, 2});
        }
    }
}

TEST(OpenExrReaderTest, floats_areReadExactly)
{
    ExrPart part = partOf({{"R", Imf::FLOAT}, {"G", Imf::FLOAT}, {"B", Imf::FLOAT}, {"A", Imf::FLOAT}});
    part.value = [](int x, int y, int channel) { return (x + 1) / 3.0 + y * 1e-4 + channel * 1000.0; };
    expectRead(part, PixelFormat::FLOAT32_RGBA, {0, 1, 2, 3});
}

TEST(OpenExrReaderTest, halvesBesideFloats_becomeFloats)
{
    expectRead(partOf({{"R", Imf::HALF}, {"G", Imf::FLOAT}, {"B", Imf::HALF}}), PixelFormat::FLOAT32_RGB,
               {0, 1, 2});
}

TEST(OpenExrReaderTest, wholeNumbers_becomeFloats)
{
    ExrPart part = partOf({{"id", Imf::UINT}});
    part.value = [](int x, int y, int) { return x + 100000.0 * y; };
    expectRead(part, PixelFormat::FLOAT32_GREY, {0});
}

TEST(OpenExrReaderTest, greyWithAlpha_becomesColours)
{
    expectRead(partOf({{"Y"}, {"A"}}), PixelFormat::FLOAT16_RGBA, {0, 0, 0, 1});
    expectRead(partOf({{"Y"}}), PixelFormat::FLOAT16_GREY, {0, 0, 0});
}

TEST(OpenExrReaderTest, colours_areMultipliedByAlpha)
{
    const auto read = readLayer(exrFile({partOf({{"R"}, {"G"}, {"B"}, {"A"}})}));
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(read->alpha, Viewer::AlphaKind::ASSOCIATED);
}

TEST(OpenExrReaderTest, twoCoordinates_leaveBlueAtZero)
{
    ExrPart part = partOf({{"u", Imf::FLOAT}, {"v", Imf::FLOAT}, {"none"}});
    part.value = [](int x, int y, int channel) { return channel == 2 ? 0.0 : exactValue(x, y, channel); };
    expectRead(part, PixelFormat::FLOAT32_RGB, {0, 1, 2});
}

TEST(OpenExrReaderTest, onePixel_isRead)
{
    for (const bool isTiled : {false, true}) {
        ExrPart part;
        part.isTiled = isTiled;
        part.data = part.display = {{0, 0}, {0, 0}};
        expectRead(part, PixelFormat::FLOAT16_RGB, {0, 1, 2});
        part.data = {{7, 7}, {7, 30'006}};
        expectRead(part, PixelFormat::FLOAT16_RGB, {0, 1, 2});
    }
}

TEST(OpenExrReaderTest, numbersThatAreNotFinite_stay)
{
    ExrPart part;
    part.value = [](int, int, int channel) {
        return channel == 0   ? std::numeric_limits<double>::infinity()
               : channel == 1 ? -std::numeric_limits<double>::infinity()
                              : std::numeric_limits<double>::quiet_NaN();
    };
    const auto read = readLayer(exrFile({part}));
    ASSERT_TRUE(read.hasValue());
    const Rgb pixel = read->image.getRgba(3, 4);
    EXPECT_EQ(pixel.r, std::numeric_limits<float>::infinity());
    EXPECT_EQ(pixel.g, -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(pixel.b));
}

TEST(OpenExrReaderTest, dataWindow_liesInTheFrame)
{
    ExrPart part;
    part.data = {{-5, -9}, {14, 20}};
    part.display = {{-1, 2}, {98, 51}};
    const auto read = readLayer(exrFile({part}));
    ASSERT_TRUE(read.hasValue());
    expectPixels(*read, part, {0, 1, 2});
    EXPECT_EQ(read->origin, (Pixel{-4, -11}));
    ASSERT_TRUE(read->frameSize.has_value());
    EXPECT_EQ(*read->frameSize, (Pixel{100, 50}));

    part.display = part.data;
    const auto whole = readLayer(exrFile({part}));
    ASSERT_TRUE(whole.hasValue());
    EXPECT_EQ(whole->origin, (Pixel{0, 0}));
    EXPECT_FALSE(whole->frameSize.has_value());
}

TEST(OpenExrReaderTest, smallerLevels_areTold)
{
    for (const Imf::LevelMode levels : {Imf::ONE_LEVEL, Imf::MIPMAP_LEVELS}) {
        ExrPart part;
        part.isTiled = true;
        part.levels = levels;
        const auto read = readLayer(exrFile({part}));
        ASSERT_TRUE(read.hasValue());
        expectPixels(*read, part, {0, 1, 2});
        EXPECT_EQ(read->omissions.size(), levels == Imf::ONE_LEVEL ? 0u : 1u);
    }
}

TEST(OpenExrReaderTest, channelsWithFewerPixels_areRefused)
{
    ExrPart part = partOf({{"Y"}, {"half", Imf::HALF, 2}});
    part.data = {{-2, -2}, {7, 5}};
    const Array<std::byte> file = exrFile({part});
    EXPECT_TRUE(readLayer(file, 0).hasValue());
    const auto read = readLayer(file, 1);
    ASSERT_FALSE(read.hasValue());
    EXPECT_EQ(read.error(), String(L"a channel of this layer has fewer pixels than the picture"));
}

TEST(OpenExrReaderTest, luminanceAndChroma_becomeColours)
{
    constexpr int WIDTH = 70;
    constexpr int HEIGHT = 600;
    for (const Imf::RgbaChannels channels : {Imf::WRITE_YC, Imf::WRITE_YCA}) {
        Tests::ExrMemory memory;
        {
            // Smooth colours, because the chroma of neighbours is averaged.
            Array<Imf::Rgba> pixels(WIDTH * HEIGHT);
            for (int y = 0; y < HEIGHT; ++y) {
                for (int x = 0; x < WIDTH; ++x)
                    pixels[static_cast<std::size_t>(y * WIDTH + x)] = {
                        0.2f + static_cast<float>(x) / 100.0f, 0.5f, 0.1f + static_cast<float>(y) / 700.0f,
                        0.5f};
            }
            const Imath::Box2i window({-10, -4}, {WIDTH - 11, HEIGHT - 5});
            Imf::RgbaOutputFile file(memory, Imf::Header(window, window), channels);
            file.setFrameBuffer(pixels.data() + 10 + 4 * WIDTH, 1, WIDTH);
            file.writePixels(HEIGHT);
        }
        const auto layers = OpenExrReader().layers(memory.content);
        ASSERT_TRUE(layers.hasValue());
        ASSERT_EQ(layers->size(), 1u);
        EXPECT_EQ(layers->front().channels.size(), channels == Imf::WRITE_YC ? 3u : 4u);
        const auto read = readLayer(memory.content);
        ASSERT_TRUE(read.hasValue()) << read.error().toUtf8();
        EXPECT_EQ(read->image.descriptor().format,
                  channels == Imf::WRITE_YC ? PixelFormat::FLOAT16_RGB : PixelFormat::FLOAT16_RGBA);
        for (int y = 0; y < HEIGHT; y += 7) {
            for (int x = 0; x < WIDTH; x += 3) {
                const Rgb pixel = read->image.getRgba(x, HEIGHT - 1 - y);
                ASSERT_NEAR(pixel.r, 0.2f + static_cast<float>(x) / 100.0f, 0.03f) << x << ", " << y;
                ASSERT_NEAR(pixel.g, 0.5f, 0.03f);
                ASSERT_NEAR(pixel.b, 0.1f + static_cast<float>(y) / 700.0f, 0.03f);
                ASSERT_EQ(pixel.a, channels == Imf::WRITE_YC ? 1.0f : 0.5f);
            }
        }
    }
}

TEST(OpenExrReaderTest, progress_growsAndCanStopTheReading)
{
    for (const bool isTiled : {false, true}) {
        ExrPart part;
        part.isTiled = isTiled;
        part.data = {{0, -1000}, {3, 1000}};
        const Array<std::byte> file = exrFile({part});
        Array<float> shares;
        ASSERT_TRUE(OpenExrReader()
                        .read(file, 0,
                              [&shares](float share) {
                                  shares.push_back(share);
                                  return true;
                              })
                        .hasValue());
        ASSERT_GT(shares.size(), 5u);
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
        EXPECT_EQ(shares.front(), 0.0f);
        EXPECT_LT(shares.back(), 1.0f);
        const auto stopped = OpenExrReader().read(file, 0, [](float share) { return share < 0.5f; });
        ASSERT_FALSE(stopped.hasValue());
        EXPECT_EQ(stopped.error(), String(L"it was not read to the end"));
    }
}

TEST(OpenExrReaderTest, severalThreads_readAtTheSameTime)
{
    ExrPart part;
    part.data = {{0, 0}, {99, 399}};
    const Array<std::byte> file = exrFile({part});
    Array<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            const auto read = readLayer(file);
            ASSERT_TRUE(read.hasValue());
            expectPixels(*read, part, {0, 1, 2});
        });
    for (std::thread& thread : threads)
        thread.join();
}
