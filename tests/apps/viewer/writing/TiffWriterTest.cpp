// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/TiffWriter.h"

#include "support/FloatImage.h"
#include "support/TemporaryFolder.h"

#include <tiffio.h>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <vector>

using namespace Nolvex;
using Viewer::AlphaKind;
using Viewer::writeTiff;

namespace {

struct Content
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t bits = 0;
    std::uint16_t samples = 0;
    std::uint16_t format = 0;
    std::uint16_t compression = 0;
    std::vector<std::uint16_t> extra;
    std::vector<std::vector<std::byte>> rows;
};

TIFF* openForReading(const Io::Path& file)
{
#ifdef _WIN32 // libtiff has a function of its own for the names of Windows
    return TIFFOpenW(file.native().c_str(), "r");
#else
    return TIFFOpen(file.native().c_str(), "r");
#endif
}

Content read(const Io::Path& file)
{
    Content content;
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(openForReading(file), TIFFClose);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &content.width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &content.height);
    TIFFGetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, &content.bits);
    TIFFGetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, &content.samples);
    TIFFGetField(tiff.get(), TIFFTAG_SAMPLEFORMAT, &content.format);
    TIFFGetField(tiff.get(), TIFFTAG_COMPRESSION, &content.compression);
    std::uint16_t count = 0;
    const std::uint16_t* extra = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_EXTRASAMPLES, &count, &extra) == 1)
        content.extra.assign(extra, extra + count);
    for (std::uint32_t y = 0; y < content.height; ++y) {
        content.rows.emplace_back(static_cast<std::size_t>(TIFFScanlineSize(tiff.get())));
        EXPECT_EQ(TIFFReadScanline(tiff.get(), content.rows.back().data(), y, 0), 1);
    }
    return content;
}

template<class Number>
std::vector<Number> numbers(const std::vector<std::byte>& row)
{
    std::vector<Number> result(row.size() / sizeof(Number));
    std::memcpy(result.data(), row.data(), row.size());
    return result;
}

struct TiffWriterTest : testing::Test
{
    Tests::TemporaryFolder folder;
    Io::Path file = folder.file(L"picture.tiff");

    Content written(const Image& image, const Wx::ImageSaveSettings& settings,
                    AlphaKind alpha = AlphaKind::STRAIGHT) const
    {
        {
            std::fstream stream(file.native(),
                                std::ios::in | std::ios::out | std::ios::trunc | std::ios::binary);
            EXPECT_FALSE(writeTiff(stream, Viewer::Picture(L"picture", image, alpha), settings, [](float) {
                             return true;
                         }).has_value());
        }
        return read(file);
    }
};

} // namespace

TEST_F(TiffWriterTest, bytes_comeBackWithTheTopRowFirst)
{
    const Content content = written(Tests::placesAsFloats(3, 2, 1.0f), {ColorFormat::UINT8_RGB, false});
    EXPECT_EQ(content.width, 3u);
    EXPECT_EQ(content.height, 2u);
    EXPECT_EQ(content.bits, 8);
    EXPECT_EQ(content.samples, 3);
    EXPECT_EQ(content.format, SAMPLEFORMAT_UINT);
    EXPECT_EQ(content.compression, COMPRESSION_ADOBE_DEFLATE);
    EXPECT_TRUE(content.extra.empty());
    EXPECT_EQ(numbers<std::uint8_t>(content.rows[0]),
              (std::vector<std::uint8_t>{0, 0, 128, 4, 0, 128, 8, 0, 128}));
    EXPECT_EQ(numbers<std::uint8_t>(content.rows[1]),
              (std::vector<std::uint8_t>{0, 4, 128, 4, 4, 128, 8, 4, 128}));
}

TEST_F(TiffWriterTest, alpha_isUnassociated)
{
    const Content content = written(Tests::placesAsFloats(1, 1, 1.0f), {ColorFormat::UINT8_RGB, true});
    EXPECT_EQ(content.samples, 4);
    EXPECT_EQ(content.extra, (std::vector<std::uint16_t>{EXTRASAMPLE_UNASSALPHA}));
    EXPECT_EQ(numbers<std::uint8_t>(content.rows[0]), (std::vector<std::uint8_t>{0, 0, 128, 191}));
}

TEST_F(TiffWriterTest, alphaOfFloats_isThatOfThePicture)
{
    const Image image = Tests::rowOfFloats({{0.25f, 0.5f, 3.0f, 0.5f}}, 2.2f);
    for (const AlphaKind kind : {AlphaKind::STRAIGHT, AlphaKind::ASSOCIATED}) {
        const Content content = written(image, {ColorFormat::FLT32_LINEAR_RGB, true}, kind);
        const std::uint16_t expected =
            kind == AlphaKind::ASSOCIATED ? EXTRASAMPLE_ASSOCALPHA : EXTRASAMPLE_UNASSALPHA;
        EXPECT_EQ(content.extra, (std::vector<std::uint16_t>{expected}));
        EXPECT_EQ(numbers<float>(content.rows[0]), (std::vector<float>{0.25f, 0.5f, 3.0f, 0.5f}));
    }
}

TEST_F(TiffWriterTest, alphaOfIntegers_isUnassociated)
{
    const Content content = written(Tests::rowOfFloats({{0.25f, 0.5f, 0.0f, 0.5f}}, 2.2f),
                                    {ColorFormat::UINT8_RGB, true}, AlphaKind::ASSOCIATED);
    EXPECT_EQ(content.extra, (std::vector<std::uint16_t>{EXTRASAMPLE_UNASSALPHA}));
    EXPECT_EQ(numbers<std::uint8_t>(content.rows[0]), (std::vector<std::uint8_t>{186, 255, 0, 128}));
}

TEST_F(TiffWriterTest, words_comeBack)
{
    const Content content = written(Tests::rowOfFloats({{1.0f / 65535.0f, 0.5f, 1.0f, 0.25f}}, 1.0f),
                                    {ColorFormat::UINT16_RGB, true});
    EXPECT_EQ(content.bits, 16);
    EXPECT_EQ(content.format, SAMPLEFORMAT_UINT);
    EXPECT_EQ(numbers<std::uint16_t>(content.rows[0]), (std::vector<std::uint16_t>{1, 32768, 65535, 16384}));
}

TEST_F(TiffWriterTest, halves_comeBack)
{
    const Content content =
        written(Tests::rowOfFloats({{1.0f, -2.0f, 0.5f, 0.0f}}, 2.2f), {ColorFormat::FLT16_LINEAR_RGB, true});
    EXPECT_EQ(content.bits, 16);
    EXPECT_EQ(content.format, SAMPLEFORMAT_IEEEFP);
    EXPECT_EQ(numbers<std::uint16_t>(content.rows[0]),
              (std::vector<std::uint16_t>{0x3c00, 0xc000, 0x3800, 0}));
}

TEST_F(TiffWriterTest, floats_comeBackBitByBit)
{
    const Content content =
        written(Tests::rowOfFloats({{1e30f, -0.0f, 1.0f / 3.0f, 0.1f}, {7.0f, 1e-40f, 65504.0f, 1.0f}}, 2.2f),
                {ColorFormat::FLT32_LINEAR_RGB, true});
    EXPECT_EQ(content.bits, 32);
    EXPECT_EQ(content.format, SAMPLEFORMAT_IEEEFP);
    EXPECT_EQ(numbers<float>(content.rows[0]),
              (std::vector<float>{1e30f, -0.0f, 1.0f / 3.0f, 0.1f, 7.0f, 1e-40f, 65504.0f, 1.0f}));
}

TEST_F(TiffWriterTest, largePictures_comeBackStripByStrip)
{
    const Content content =
        written(Tests::placesAsFloats(700, 500, 2.2f), {ColorFormat::FLT32_LINEAR_RGB, false});
    ASSERT_EQ(content.rows.size(), 500u);
    EXPECT_EQ(numbers<float>(content.rows[499])[3 * 699], 699.0f / 64.0f);
    EXPECT_EQ(numbers<float>(content.rows[499])[3 * 699 + 1], 499.0f / 64.0f);
}

TEST_F(TiffWriterTest, progress_canStopTheRows)
{
    std::stringstream stream;
    int calls = 0;
    EXPECT_FALSE(writeTiff(stream, Viewer::Picture(L"picture", Tests::placesAsFloats(8, 8, 1.0f)), {},
                           [&](float share) {
                               ++calls;
                               return share < 0.5f;
                           })
                     .has_value());
    EXPECT_EQ(calls, 5);
}

TEST_F(TiffWriterTest, streamThatFails_isAnError)
{
    std::stringstream stream;
    stream.setstate(std::ios::badbit);
    EXPECT_EQ(writeTiff(stream, Viewer::Picture(L"picture", Tests::placesAsFloats(8, 8, 1.0f)), {},
                        [](float) { return true; }),
              String(L"the file cannot be written"));
}
