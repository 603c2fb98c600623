// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/InformationText.h"

#include "../reading/ExrFiles.h"
#include "apps/viewer/LayeredFile.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

using namespace Nolvex;
using Viewer::numberText;

namespace {

Viewer::ChannelStatistics channel(double min, double max, double mean, std::int64_t infiniteCount = 0)
{
    Viewer::ChannelStatistics statistics;
    statistics.min = min;
    statistics.max = max;
    statistics.mean = mean;
    statistics.infiniteCount = infiniteCount;
    return statistics;
}

Viewer::ReadImage floatsOf(int width, int height, float gamma)
{
    return {*Image::create(width, height, PixelFormat::FLOAT16_RGB, gamma)};
}

Viewer::Picture pictureOf(Viewer::ReadImage read)
{
    return {L"a", std::move(read), nullptr, 0};
}

} // namespace

TEST(InformationTextTest, number_hasSixDigitsAndAPoint)
{
    EXPECT_EQ(numberText(0.0), L"0");
    EXPECT_EQ(numberText(0.1), L"0.1");
    EXPECT_EQ(numberText(-2.5), L"-2.5");
    EXPECT_EQ(numberText(1.0 / 3.0), L"0.333333");
    EXPECT_EQ(numberText(123456.7), L"123457");
    EXPECT_EQ(numberText(-std::numeric_limits<double>::max()), L"-1.79769e+308");
    EXPECT_EQ(numberText(INFINITY), L"inf");
}

TEST(InformationTextTest, nan_hasNoSign)
{
    EXPECT_EQ(numberText(NAN), L"nan");
    EXPECT_EQ(numberText(std::copysign(double(NAN), -1.0)), L"nan");
}

TEST(InformationTextTest, statistics_tellEachChannelByItsName)
{
    Viewer::PictureStatistics statistics;
    statistics.channels = {channel(0, 1, 0.5), channel(-1, 2, 0.25, 3), channel(0, 0.125, 0.0625)};
    statistics.nanPixelCount = 7;
    EXPECT_EQ(statisticsText(*Tests::coordinates(4, 3), statistics, {}), L"Whole picture\n"
                                                                         L"R: 0 to 1\n"
                                                                         L"    mean 0.5\n"
                                                                         L"G: -1 to 2\n"
                                                                         L"    mean 0.25\n"
                                                                         L"    infinite: 3\n"
                                                                         L"B: 0 to 0.125\n"
                                                                         L"    mean 0.0625\n"
                                                                         L"NaN pixels: 7\n");
}

TEST(InformationTextTest, statisticsOfASelection_tellItsPlace)
{
    Viewer::PictureStatistics statistics;
    EXPECT_EQ(statisticsText(*Tests::coordinates(40, 30), statistics, wxRect(5, 6, 20, 10)),
              L"Selection 20 \u00D7 10 at 5, 6\nNaN pixels: 0\n");
}

TEST(InformationTextTest, metadata_beginsWithSizeAndValues)
{
    EXPECT_EQ(metadataText(*Tests::coordinates(40, 30)),
              L"Size: 40 \u00D7 30\nValues: 8-bit integers, gamma 1\n");
    EXPECT_EQ(metadataText(pictureOf(floatsOf(4, 3, 2.2f))),
              L"Size: 4 \u00D7 3\nValues: 16-bit floats, gamma 2.2\n");
}

TEST(InformationTextTest, metadata_tellsEachFormat)
{
    const std::pair<PixelFormat, const wchar_t*> formats[] = {
        {PixelFormat::UINT8_RGBA, L"8-bit integers"},   {PixelFormat::UINT16_GREY, L"16-bit integers"},
        {PixelFormat::UINT16_RGBA, L"16-bit integers"}, {PixelFormat::FLOAT16_RGBA, L"16-bit floats"},
        {PixelFormat::FLOAT32_GREY, L"32-bit floats"},  {PixelFormat::FLOAT32_RGBA, L"32-bit floats"},
    };
    for (const auto& [format, text] : formats) {
        const Viewer::Picture picture(L"a", *Image::create(1, 1, format, 1.0f));
        EXPECT_NE(metadataText(picture).find(String(L"Values: ") + text + L","), String::NPOS) << text;
    }
}

TEST(InformationTextTest, metadata_tellsTheKindOfAlpha)
{
    const Image image = *Image::create(1, 1, PixelFormat::UINT8_RGBA, 1.0f);
    EXPECT_NE(metadataText(Viewer::Picture(L"a", image)).find(L"\nAlpha: straight\n"), String::NPOS);
    EXPECT_NE(metadataText(Viewer::Picture(L"a", image, Viewer::AlphaKind::ASSOCIATED))
                  .find(L"\nAlpha: associated (in the colours)\n"),
              String::NPOS);
    EXPECT_EQ(metadataText(*Tests::coordinates(4, 3)).find(L"Alpha"), String::NPOS);
}

TEST(InformationTextTest, metadata_tellsThePlaceInTheFrameOnlyIfThePictureDoesNotFillIt)
{
    Viewer::ReadImage part = floatsOf(4, 3, 2.2f);
    part.origin = {-1, 2};
    part.frameSize = Pixel{20, 10};
    EXPECT_EQ(metadataText(pictureOf(std::move(part))),
              L"Size: 4 \u00D7 3\nValues: 16-bit floats, gamma 2.2\nFrame: 20 \u00D7 10, picture at -1, 2\n");
    Viewer::ReadImage whole = floatsOf(4, 3, 2.2f);
    whole.frameSize = Pixel{4, 3};
    EXPECT_EQ(metadataText(pictureOf(std::move(whole))).find(L"Frame"), String::NPOS);
}

TEST(InformationTextTest, metadata_endsWithWhatTheFileTellsAndHoldsBesides)
{
    Viewer::ReadImage read = floatsOf(4, 3, 1.0f);
    read.metadata = {{L"Owner", L"the studio"}, {L"Comments", L"two\nlines"}};
    read.omissions = {L"The file has an animation."};
    EXPECT_EQ(metadataText(pictureOf(std::move(read))), L"Size: 4 \u00D7 3\nValues: 16-bit floats, gamma 1\n"
                                                        L"Owner: the studio\n"
                                                        L"Comments: two\nlines\n"
                                                        L"The file has an animation.\n");
}

TEST(InformationTextTest, metadata_tellsTheLayerOnlyIfThereAreSeveral)
{
    Tests::ExrPart part;
    part.channels = {{"R"}, {"G"}, {"B"}, {"mask.Y"}};
    const auto file = *Viewer::LayeredFile::open(Tests::exrFile({part}));
    const Viewer::Picture mask(L"a", *file->read(1, {}), file, 1);
    EXPECT_NE(metadataText(mask).find(L"Layer: mask (Y)\n"), String::NPOS);
    const Viewer::Picture beauty(L"a", *file->read(0, {}), file, 0);
    EXPECT_NE(metadataText(beauty).find(L"Layer: R, G, B\n"), String::NPOS) << "a layer without a name";
    EXPECT_EQ(metadataText(*Tests::coordinates(4, 3)).find(L"Layer"), String::NPOS);
}

TEST(InformationTextTest, difference_tellsMeanAndSignalToNoise)
{
    Viewer::PictureDifference difference;
    difference.mean = 0.001;
    difference.psnr = 32.5;
    EXPECT_EQ(differenceText(difference), L"Mean: 0.001\nPSNR: 32.5 dB\n");
    difference.psnr = INFINITY;
    difference.notFiniteCount = 12;
    EXPECT_EQ(differenceText(difference),
              L"Mean: 0.001\nPSNR: inf dB\nLeft out (infinite or NaN): 12 pixels\n");
}
