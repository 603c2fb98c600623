// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/RadianceReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

using namespace Nolvex;
using namespace std::string_literals;
using Viewer::RadianceReader;

namespace {

ArrayView<const std::byte> bytesOf(const std::string& file)
{
    return {reinterpret_cast<const std::byte*>(file.data()), file.size()};
}

Expected<Viewer::ReadImage, String> read(const std::string& file)
{
    return RadianceReader().read(bytesOf(file), 0, {});
}

std::string header(int width, int height)
{
    return "#?RADIANCE\n# a comment\nSOFTWARE=tests\nEXPOSURE=2\nFORMAT=32-bit_rle_rgbe\n\n-Y " +
           std::to_string(height) + " +X " + std::to_string(width) + "\n";
}

char byteAt(int x, int y, int channel)
{
    // The exponents of neighbours are equal, so that there are runs.
    return channel == 3 ? static_cast<char>(125 + y % 8)
                        : static_cast<char>((x * 3 + y * 5 + channel * 70) % 256);
}

float valueAt(int x, int y, int channel)
{
    return std::ldexp(static_cast<float>(static_cast<unsigned char>(byteAt(x, y, channel))),
                      static_cast<unsigned char>(byteAt(x, y, 3)) - 136);
}

// Returns a file with the four bytes of each pixel together.
std::string flatFile(int width, int height)
{
    std::string file = header(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (int channel = 0; channel < 4; ++channel)
                file += byteAt(x, y, channel);
        }
    }
    return file;
}

// Returns a file with runs.
std::string packedFile(int width, int height)
{
    std::string file = header(width, height);
    for (int y = 0; y < height; ++y) {
        file += "\2\2"s + static_cast<char>(width >> 8) + static_cast<char>(width & 255);
        for (int channel = 0; channel < 4; ++channel) {
            for (int x = 0; x < width;) {
                const int count = std::min(width - x, channel == 3 ? 127 : 128);
                file += static_cast<char>(channel == 3 ? 128 + count : count);
                for (int i = 0; i < (channel == 3 ? 1 : count); ++i)
                    file += byteAt(x + i, y, channel);
                x += count;
            }
        }
    }
    return file;
}

void expectPixels(const std::string& file, int width, int height)
{
    const auto image = read(file);
    ASSERT_TRUE(image.hasValue()) << image.error().toUtf8();
    EXPECT_EQ(image->image.descriptor(),
              (ImageDescriptor{
                  .width = width, .height = height, .format = PixelFormat::FLOAT32_RGB, .gamma = 2.2f}));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Rgb pixel = image->image.getRgba(x, height - 1 - y);
            ASSERT_EQ(pixel.r, valueAt(x, y, 0)) << x << ", " << y;
            ASSERT_EQ(pixel.g, valueAt(x, y, 1));
            ASSERT_EQ(pixel.b, valueAt(x, y, 2));
        }
    }
}

} // namespace

TEST(RadianceReaderTest, runs_areRead)
{
    expectPixels(packedFile(300, 20), 300, 20);
    expectPixels(packedFile(8, 1), 8, 1);
}

TEST(RadianceReaderTest, pixelsWithoutRuns_areRead)
{
    expectPixels(flatFile(7, 5), 7, 5);
    expectPixels(flatFile(1, 1), 1, 1);
    expectPixels(flatFile(40, 3), 40, 3);
}

TEST(RadianceReaderTest, linesOfTheHeader_areMetadata)
{
    const auto image = read(flatFile(2, 2));
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->metadata,
              (Array<Viewer::MetadataEntry>{
                  {L"SOFTWARE", L"tests"}, {L"EXPOSURE", L"2"}, {L"FORMAT", L"32-bit_rle_rgbe"}}));
}

TEST(RadianceReaderTest, everyCut_isAnError)
{
    for (const std::string& whole : {packedFile(200, 6), flatFile(7, 30), flatFile(32, 1)}) {
        ASSERT_TRUE(read(whole).hasValue());
        for (std::size_t length = 0; length < whole.size(); ++length)
            ASSERT_FALSE(read(whole.substr(0, length)).hasValue()) << length;
    }
}

TEST(RadianceReaderTest, zerosForEver_end)
{
    const auto image = read(header(300, 200) + "\2\2\1\x2c"s + std::string(2000, '\0'));
    ASSERT_FALSE(image.hasValue());
    EXPECT_EQ(image.error(), String(L"it is damaged or cut off"));
}

TEST(RadianceReaderTest, otherKinds_areRefusedWithAReason)
{
    std::string xyz = flatFile(2, 2);
    xyz[xyz.find("rgbe")] = 'x';
    EXPECT_EQ(read(xyz).error(), String(L"it is damaged or of a kind that is not read"));
    std::string turned = flatFile(2, 2);
    turned[turned.find("-Y")] = '+';
    EXPECT_FALSE(read(turned).hasValue());
    EXPECT_EQ(read(header(0, 5)).error(), String(L"it has no pixels"));
    EXPECT_FALSE(read(header(-3, 5)).hasValue());
    EXPECT_EQ(read(header(30'000, 30'000)).error(), String(L"it is damaged or cut off"));
    EXPECT_FALSE(read(header(2'000'000'000, 2'000'000'000)).hasValue());
}

TEST(RadianceReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(33); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const std::string& whole : {packedFile(200, 6), flatFile(7, 30)}) {
        for (int run = 0; run < 3000; ++run) {
            std::string file = whole;
            for (int i = 0; i < 3; ++i)
                file[random() % file.size()] = static_cast<char>(random());
            const auto image = read(file);
            EXPECT_TRUE(image.hasValue() || !image.error().isEmpty());
        }
    }
}

TEST(RadianceReaderTest, progress_growsAndCanStopTheReading)
{
    // Larger than the steps in which the progress is told.
    const std::string file = packedFile(3000, 400);
    ASSERT_GT(file.size(), 3'000'000u);
    Array<float> shares;
    EXPECT_TRUE(RadianceReader()
                    .read(bytesOf(file), 0,
                          [&shares](float share) {
                              shares.push_back(share);
                              return true;
                          })
                    .hasValue());
    EXPECT_GE(shares.size(), 3u);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    const auto stopped = RadianceReader().read(bytesOf(file), 0, [](float share) { return share < 0.4f; });
    ASSERT_FALSE(stopped.hasValue());
    EXPECT_EQ(stopped.error(), String(L"it was not read to the end"));
}
