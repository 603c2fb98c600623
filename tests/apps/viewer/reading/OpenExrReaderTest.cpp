// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrReader.h"

#include "apps/viewer/reading/ExrFiles.h"

#include <gtest/gtest.h>

#include <ImfChromaticitiesAttribute.h>
#include <ImfDoubleAttribute.h>
#include <ImfFloatAttribute.h>
#include <ImfIntAttribute.h>
#include <ImfMatrixAttribute.h>
#include <ImfRationalAttribute.h>
#include <ImfRgbaFile.h>
#include <ImfStringAttribute.h>
#include <ImfStringVectorAttribute.h>
#include <ImfTimeCodeAttribute.h>
#include <ImfVecAttribute.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <thread>

using namespace Nolvex;
using Tests::exactValue;
using Tests::ExrChannel;
using Tests::exrFile;
using Tests::ExrPart;
using Viewer::OpenExrReader;
using Viewer::ReadImage;

namespace {

Expected<ReadImage, String> readLayer(ArrayView<const std::byte> file, std::size_t layer = 0)
{
    return OpenExrReader().read(file, layer, {});
}

Array<String> layerNames(const Array<std::byte>& file)
{
    Array<String> names;
    const auto layers = OpenExrReader().layers(file);
    if (layers) {
        for (const Viewer::PictureLayer& layer : *layers)
            names.push_back(layer.name);
    }
    return names;
}

float channelOf(const Rgb& pixel, int channel)
{
    return channel == 0 ? pixel.r : channel == 1 ? pixel.g : channel == 2 ? pixel.b : pixel.a;
}

// Expects that the channels of the image are these channels of the part.
void expectPixels(const ReadImage& read, const ExrPart& part, const Array<int>& channels,
                  float tolerance = 0.0f)
{
    const int height = part.data.max.y - part.data.min.y + 1;
    ASSERT_EQ(read.image.descriptor().width, part.data.max.x - part.data.min.x + 1);
    ASSERT_EQ(read.image.descriptor().height, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < read.image.descriptor().width; ++x) {
            const Rgb pixel = read.image.getRgba(x, height - 1 - y);
            for (std::size_t i = 0; i < channels.size(); ++i) {
                const auto wanted =
                    static_cast<float>(part.value(x + part.data.min.x, y + part.data.min.y, channels[i]));
                ASSERT_NEAR(channelOf(pixel, static_cast<int>(i)), wanted, tolerance)
                    << x << ", " << y << ", channel " << i << ", compression " << part.compression;
            }
        }
    }
}

void expectRead(const ExrPart& part, PixelFormat format, const Array<int>& channels, float tolerance = 0.0f)
{
    const auto read = readLayer(exrFile({part}));
    ASSERT_TRUE(read.hasValue()) << read.error().toUtf8();
    EXPECT_EQ(read->image.descriptor().format, format);
    EXPECT_EQ(read->image.descriptor().gamma, 2.2f);
    expectPixels(*read, part, channels, tolerance);
}

ExrPart partOf(const Array<ExrChannel>& channels)
{
    ExrPart part;
    part.channels = channels;
    return part;
}

String valueOf(const ReadImage& read, const wchar_t* name)
{
    for (const Viewer::MetadataEntry& entry : read.metadata) {
        if (entry.name == name)
            return entry.value;
    }
    return L"(missing)";
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

TEST(OpenExrReaderTest, channels_areGroupedToLayers)
{
    const ExrPart part = partOf({{"R"},
                                 {"G"},
                                 {"B"},
                                 {"A"},
                                 {"Z", Imf::FLOAT},
                                 {"diffuse.R"},
                                 {"diffuse.G"},
                                 {"diffuse.B"},
                                 {"N.X"},
                                 {"N.Y"},
                                 {"N.Z"},
                                 {"uv.u"},
                                 {"uv.v"},
                                 {"mask.Y"},
                                 {"light.key.red"},
                                 {"light.key.green"},
                                 {"light.key.blue"},
                                 {"crypto00.r"},
                                 {"crypto00.g"},
                                 {"crypto00.b"},
                                 {"crypto00.a"},
                                 {"two.R"},
                                 {"two.G"}});
    const Array<std::byte> file = exrFile({part});
    const auto layers = OpenExrReader().layers(file);
    ASSERT_TRUE(layers.hasValue());
    const Array<Viewer::PictureLayer> wanted{{L"", {L"R", L"G", L"B", L"A"}},
                                             {L"Z", {L"Z"}},
                                             {L"N", {L"X", L"Y", L"Z"}},
                                             {L"crypto00", {L"r", L"g", L"b", L"a"}},
                                             {L"diffuse", {L"R", L"G", L"B"}},
                                             {L"light.key", {L"red", L"green", L"blue"}},
                                             {L"mask", {L"Y"}},
                                             {L"two.G", {L"G"}},
                                             {L"two.R", {L"R"}},
                                             {L"uv", {L"u", L"v", L""}}};
    EXPECT_EQ(*layers, wanted);

    const Array<Array<int>> channels{{0, 1, 2, 3}, {4},          {8, 9, 10},   {17, 18, 19, 20},
                                     {5, 6, 7},    {14, 15, 16}, {13, 13, 13}, {22},
                                     {21},         {11, 12}};
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const auto read = readLayer(file, i);
        ASSERT_TRUE(read.hasValue()) << i;
        expectPixels(*read, part, channels[i]);
    }
    EXPECT_FALSE(readLayer(file, channels.size()).hasValue());
}

TEST(OpenExrReaderTest, mainLayer_comesFirst)
{
    EXPECT_EQ(layerNames(exrFile({partOf({{"AO.Y"},
                                          {"View.Combined.R"},
                                          {"View.Combined.G"},
                                          {"View.Combined.B"},
                                          {"Albedo.R"},
                                          {"Albedo.G"},
                                          {"Albedo.B"}})})),
              (Array<String>{L"View.Combined", L"AO", L"Albedo"}));
    EXPECT_EQ(layerNames(exrFile({partOf({{"P.X"}, {"P.Y"}, {"P.Z"}, {"a.R"}, {"a.G"}, {"a.B"}, {"Z"}})})),
              (Array<String>{L"a", L"Z", L"P"}));
    EXPECT_EQ(layerNames(exrFile({partOf({{"Z"}, {"A.Y"}})})), (Array<String>{L"Z", L"A"}));
}

TEST(OpenExrReaderTest, parts_giveTheirNamesToLayers)
{
    ExrPart depth = partOf({{"Z", Imf::FLOAT}});
    depth.name = "depth";
    depth.isTiled = true;
    ExrPart beauty = partOf({{"R"}, {"G"}, {"B"}, {"A"}, {"spec.R"}, {"spec.G"}, {"spec.B"}});
    beauty.name = "beauty";
    beauty.data = {{2, 3}, {9, 8}};
    ExrPart diffuse = partOf({{"diffuse.R"}, {"diffuse.G"}, {"diffuse.B"}});
    diffuse.name = "diffuse";
    const Array<std::byte> file = exrFile({depth, beauty, diffuse});
    ASSERT_EQ(layerNames(file), (Array<String>{L"beauty", L"depth.Z", L"beauty.spec", L"diffuse"}));

    const auto first = readLayer(file, 0);
    ASSERT_TRUE(first.hasValue());
    expectPixels(*first, beauty, {0, 1, 2, 3});
    EXPECT_EQ(first->origin, (Pixel{2, 3}));
    EXPECT_EQ(valueOf(*first, L"name"), String(L"beauty"));
    const auto second = readLayer(file, 1);
    ASSERT_TRUE(second.hasValue());
    expectPixels(*second, depth, {0});
    const auto last = readLayer(file, 3);
    ASSERT_TRUE(last.hasValue());
    expectPixels(*last, diffuse, {0, 1, 2});
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

TEST(OpenExrReaderTest, attributes_becomeText)
{
    ExrPart part;
    part.data = {{-2, 0}, {18, 12}};
    const Array<std::byte> file = exrFile({part}, [](Imf::Header& header) {
        header.insert("artist", Imf::StringAttribute("J\xC3\xB6rg"));
        header.insert("samples", Imf::IntAttribute(512));
        header.insert("exposure", Imf::FloatAttribute(-1.5f));
        header.insert("step", Imf::DoubleAttribute(0.1));
        header.insert("eye", Imf::V3fAttribute(Imath::V3f(1, 2.5f, -3)));
        header.insert("worldToCamera", Imf::M33fAttribute(Imath::M33f()));
        header.insert("passes", Imf::StringVectorAttribute({"direct", "indirect"}));
        header.insert("timeCode", Imf::TimeCodeAttribute(Imf::TimeCode(1, 2, 3, 4)));
        header.insert("framesPerSecond", Imf::RationalAttribute(Imf::Rational(24000, 1001)));
        header.insert("chromaticities", Imf::ChromaticitiesAttribute(Imf::Chromaticities()));
    });
    const auto read = readLayer(file);
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(valueOf(*read, L"artist"), String(L"J\u00F6rg"));
    EXPECT_EQ(valueOf(*read, L"samples"), String(L"512"));
    EXPECT_EQ(valueOf(*read, L"exposure"), String(L"-1.5"));
    EXPECT_EQ(valueOf(*read, L"step"), String(L"0.1"));
    EXPECT_EQ(valueOf(*read, L"eye"), String(L"(1, 2.5, -3)"));
    EXPECT_EQ(valueOf(*read, L"worldToCamera"), String(L"1 0 0; 0 1 0; 0 0 1"));
    EXPECT_EQ(valueOf(*read, L"passes"), String(L"direct, indirect"));
    EXPECT_EQ(valueOf(*read, L"timeCode"), String(L"01:02:03:04"));
    EXPECT_EQ(valueOf(*read, L"framesPerSecond"), String(L"24000/1001"));
    EXPECT_EQ(valueOf(*read, L"chromaticities"),
              String(L"red (0.64, 0.33), green (0.3, 0.6), blue (0.15, 0.06), white (0.3127, 0.329)"));
    EXPECT_EQ(valueOf(*read, L"dataWindow"), String(L"(-2, 0) to (18, 12)"));
    EXPECT_EQ(valueOf(*read, L"compression"), String(L"ZIP"));
    EXPECT_EQ(valueOf(*read, L"lineOrder"), String(L"increasing y"));
    EXPECT_EQ(valueOf(*read, L"channels"), String(L"B half, G half, R half"));
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
        EXPECT_GT(shares.size(), 5u);
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
