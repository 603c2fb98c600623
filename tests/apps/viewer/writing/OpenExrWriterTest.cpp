// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/OpenExrWriter.h"

#include "apps/viewer/reading/ExrFiles.h"
#include "apps/viewer/reading/OpenExrReader.h"
#include "support/FloatImage.h"

#include <ImfChromaticitiesAttribute.h>
#include <ImfInputFile.h>
#include <ImfPreviewImage.h>
#include <ImfRationalAttribute.h>
#include <ImfStdIO.h>
#include <ImfStringAttribute.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

using namespace Nolvex;
using Viewer::AlphaKind;
using Viewer::Picture;
using Viewer::writeOpenExr;

namespace {

constexpr float INF = std::numeric_limits<float>::infinity();

const Viewer::Progress GO_ON = [](float) { return true; };

std::string written(const Picture& picture, const Wx::ImageSaveSettings& settings)
{
    std::stringstream stream;
    EXPECT_EQ(writeOpenExr(stream, picture, settings, GO_ON), std::nullopt);
    return stream.str();
}

Viewer::ReadImage readFrom(const std::string& file)
{
    auto read =
        Viewer::OpenExrReader().read({reinterpret_cast<const std::byte*>(file.data()), file.size()}, 0, {});
    EXPECT_TRUE(read.hasValue());
    return *std::move(read);
}

Picture associated(Image image)
{
    return Picture(L"picture", std::move(image), AlphaKind::ASSOCIATED);
}

Image readBack(Image image, const Wx::ImageSaveSettings& settings)
{
    return readFrom(written(associated(std::move(image)), settings)).image;
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
    const Picture picture(L"picture", Tests::rowOfFloats({{0.5f, 1.0f, 0.0f, 0.5f}}, 1.0f));
    const Image read = readFrom(written(picture, {ColorFormat::FLT32_LINEAR_RGB, true})).image;
    EXPECT_NEAR(read.getRgba(0, 0).r, 0.5f * std::pow(0.5f, 2.2f), 1e-6f) << "multiplied by alpha";
    EXPECT_EQ(read.getRgba(0, 0).a, 0.5f) << "alpha is no light";
}

TEST(OpenExrWriterTest, associatedColours_stayExactlyAsTheyAre)
{
    const Image image = Tests::rowOfFloats({{0.1f, 0.2f, 7.0f, 0.3f}, {0.5f, 0.25f, 0.0f, 0.0f}}, 2.2f);
    const Viewer::ReadImage read =
        readFrom(written(associated(image), {ColorFormat::FLT32_LINEAR_RGB, true}));
    EXPECT_EQ(read.alpha, AlphaKind::ASSOCIATED);
    EXPECT_EQ(read.image.getRgba(0, 0), image.getRgba(0, 0));
    EXPECT_EQ(read.image.getRgba(1, 0), image.getRgba(1, 0)) << "light without alpha is not lost";
}

TEST(OpenExrWriterTest, frame_staysWhereItWas)
{
    Tests::ExrPart part;
    part.data = {{-5, -9}, {14, 20}};
    part.display = {{-1, 2}, {98, 51}};
    const Array<std::byte> old = Tests::exrFile({part});
    const Picture picture(L"picture", *Viewer::OpenExrReader().read(old, 0, {}), nullptr, 0);
    const std::string file = written(picture, {ColorFormat::FLT16_LINEAR_RGB, false});
    Imf::StdISStream input;
    input.str(file);
    const Imf::InputFile saved(input);
    EXPECT_EQ(saved.header().dataWindow(), part.data);
    EXPECT_EQ(saved.header().displayWindow(), part.display);
    const Viewer::ReadImage read = readFrom(file);
    EXPECT_EQ(read.origin, picture.origin());
    EXPECT_EQ(read.frameSize, picture.frameSize());
    for (const int y : {0, 13, 29})
        EXPECT_EQ(read.image.getRgba(7, y), picture.image().getRgba(7, y)) << y;
}

TEST(OpenExrWriterTest, frameOfOtherFormats_beginsAtZero)
{
    Viewer::ReadImage content{Tests::placesAsFloats(4, 3, 2.2f)};
    content.origin = {2, -1};
    content.frameSize = Pixel{10, 8};
    const Viewer::ReadImage read = readFrom(
        written(Picture(L"picture", std::move(content), nullptr, 0), {ColorFormat::FLT32_LINEAR_RGB, true}));
    EXPECT_EQ(read.origin, (Pixel{2, -1}));
    EXPECT_EQ(read.frameSize, (Pixel{10, 8}));
}

TEST(OpenExrWriterTest, attributes_areKeptIfTheyStillHold)
{
    const Imf::Chromaticities primaries({0.7f, 0.3f}, {0.17f, 0.8f}, {0.13f, 0.04f}, {0.31f, 0.33f});
    Tests::ExrPart part;
    part.name = "beauty";
    part.isTiled = true;
    part.compression = Imf::PIZ_COMPRESSION;
    const Array<std::byte> old =
        Tests::exrFile({part, Tests::ExrPart{.name = "other"}}, [&](Imf::Header& header) {
            header.insert("owner", Imf::StringAttribute("the studio"));
            header.insert("chromaticities", Imf::ChromaticitiesAttribute(primaries));
            header.insert("framesPerSecond", Imf::RationalAttribute(Imf::Rational(24, 1)));
            header.insert("cryptomatte/1234567/manifest", Imf::StringAttribute("{}"));
            header.insert("view", Imf::StringAttribute("left"));
            header.setPreviewImage(Imf::PreviewImage(2, 2));
            header.pixelAspectRatio() = 2.0f;
        });
    const Picture picture(L"picture", *Viewer::OpenExrReader().read(old, 0, {}), nullptr, 0);
    const std::string file = written(picture, {ColorFormat::FLT32_LINEAR_RGB, false});
    Imf::StdISStream input;
    input.str(file);
    const Imf::InputFile saved(input);
    const Imf::Header& header = saved.header();
    EXPECT_EQ(header.typedAttribute<Imf::StringAttribute>("owner").value(), "the studio");
    EXPECT_EQ(header.typedAttribute<Imf::ChromaticitiesAttribute>("chromaticities").value(), primaries);
    EXPECT_EQ(header.typedAttribute<Imf::RationalAttribute>("framesPerSecond").value().n, 24);
    EXPECT_EQ(header.pixelAspectRatio(), 2.0f);
    EXPECT_EQ(header.compression(), Imf::ZIP_COMPRESSION);
    for (const char* const stale : {"tiles", "preview", "view", "name", "cryptomatte/1234567/manifest"})
        EXPECT_EQ(header.find(stale), header.end()) << stale;
    int channels = 0;
    for (auto channel = header.channels().begin(); channel != header.channels().end(); ++channel)
        channels += channel.channel().type == Imf::FLOAT ? 1 : 100;
    EXPECT_EQ(channels, 3);
}

TEST(OpenExrWriterTest, progress_growsAndCanStopTheWriting)
{
    const Picture image(L"picture", Tests::placesAsFloats(4, 100, 2.2f));
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
    EXPECT_TRUE(writeOpenExr(stream, associated(Tests::placesAsFloats(4, 4, 2.2f)), {}, GO_ON).has_value());
}
