// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/OpenExrWriter.h"

#include "apps/viewer/reading/OpenExrReader.h"
#include "support/FloatImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

using namespace Nolvex;
using Viewer::writeOpenExr;

namespace {

constexpr float INF = std::numeric_limits<float>::infinity();

const Viewer::Progress GO_ON = [](float) { return true; };

std::string written(const Image& image, const Wx::ImageSaveSettings& settings)
{
    std::stringstream stream;
    EXPECT_EQ(writeOpenExr(stream, image, settings, GO_ON), std::nullopt);
    return stream.str();
}

Image readBack(const Image& image, const Wx::ImageSaveSettings& settings)
{
    const std::string file = written(image, settings);
    auto read =
        Viewer::OpenExrReader().read({reinterpret_cast<const std::byte*>(file.data()), file.size()}, 0, {});
    EXPECT_TRUE(read.hasValue());
    return std::move(read->image);
}

} // namespace

TEST(OpenExrWriterTest, floats_areKeptExactly)
{
    const Image image =
        Tests::rowOfFloats({{1.0e30f, -0.25f, 1.0f / 3.0f, 0.5f}, {INF, std::nanf(""), 0.0f, 1.0f}}, 2.2f);
    const Image read = readBack(image, {ColorFormat::FLT32_LINEAR_RGB, true});
    EXPECT_EQ(read.descriptor(), image.descriptor());
    EXPECT_EQ(read.getRgba(0, 0), image.getRgba(0, 0));
    EXPECT_EQ(read.getRgba(1, 0).r, INF);
    EXPECT_TRUE(std::isnan(read.getRgba(1, 0).g));
}

TEST(OpenExrWriterTest, halves_areTheNearestOnes)
{
    const Image image = Tests::rowOfFloats({{0.1f, 2.0f, 1.0e6f, 0.25f}}, 2.2f);
    const Image read = readBack(image, {ColorFormat::FLT16_LINEAR_RGB, true});
    EXPECT_EQ(read.descriptor().format, PixelFormat::FLOAT16_RGBA);
    EXPECT_NEAR(read.getRgba(0, 0).r, 0.1f, 0.1f / 2048.0f);
    EXPECT_EQ(read.getRgba(0, 0).g, 2.0f);
    EXPECT_EQ(read.getRgba(0, 0).b, INF);
    EXPECT_EQ(read.getRgba(0, 0).a, 0.25f);
}

TEST(OpenExrWriterTest, alpha_isLeftOutIfItIsNotWanted)
{
    const Image read = readBack(Tests::placesAsFloats(3, 2, 2.2f), {ColorFormat::FLT32_LINEAR_RGB, false});
    EXPECT_EQ(read.descriptor().format, PixelFormat::FLOAT32_RGB);
}

TEST(OpenExrWriterTest, rowsOfSeveralBlocks_areInTheirPlaces)
{
    const Image image = Tests::placesAsFloats(5, 50, 2.2f);
    const Image read = readBack(image, {ColorFormat::FLT32_LINEAR_RGB, true});
    for (const int y : {0, 1, 15, 16, 17, 31, 32, 33, 48, 49})
        EXPECT_EQ(read.getRgba(4, y), image.getRgba(4, y)) << y;
}

TEST(OpenExrWriterTest, encodedValues_becomeLight)
{
    const Image image = Tests::rowOfFloats({{0.5f, 1.0f, 0.0f, 0.5f}}, 1.0f);
    const Image read = readBack(image, {ColorFormat::FLT32_LINEAR_RGB, true});
    EXPECT_NEAR(read.getRgba(0, 0).r, std::pow(0.5f, 2.2f), 1e-6f);
    EXPECT_EQ(read.getRgba(0, 0).a, 0.5f) << "alpha is no light";
}

TEST(OpenExrWriterTest, progress_growsAndCanStopTheWriting)
{
    const Image image = Tests::placesAsFloats(4, 100, 2.2f);
    float last = -1.0f;
    std::stringstream stream;
    EXPECT_EQ(writeOpenExr(stream, image, {ColorFormat::FLT32_LINEAR_RGB, true},
                           [&last](float share) {
                               EXPECT_GT(share, last);
                               last = share;
                               return share < 0.5f;
                           }),
              std::nullopt);
    EXPECT_GE(last, 0.5f);
    EXPECT_LT(last, 0.7f);
}

TEST(OpenExrWriterTest, streamThatTakesNothing_isAFailure)
{
    std::stringstream stream;
    stream.setstate(std::ios::badbit);
    EXPECT_TRUE(writeOpenExr(stream, Tests::placesAsFloats(4, 4, 2.2f), {}, GO_ON).has_value());
}
