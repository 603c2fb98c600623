// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/PngWriter.h"

#include "NolvexLib/Array.h"
#include "support/FloatImage.h"

#include <png.h>

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

using namespace Nolvex;
using Viewer::AlphaKind;
using Viewer::writePng;

namespace {

struct Content
{
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    int bits = 0;
    int channels = 0;
    bool isSrgb = false;
    std::vector<std::vector<png_byte>> rows;
};

// Reads a file as it is, without any conversion.
Content read(const std::string& file)
{
    Content content;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    std::istringstream stream(file);
    png_set_read_fn(png, &stream, [](png_structp reader, png_bytep bytes, png_size_t count) {
        auto& from = *static_cast<std::istream*>(png_get_io_ptr(reader));
        from.read(reinterpret_cast<char*>(bytes), static_cast<std::streamsize>(count));
    });
    png_read_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    content.width = png_get_image_width(png, info);
    content.height = png_get_image_height(png, info);
    content.bits = png_get_bit_depth(png, info);
    content.channels = png_get_channels(png, info);
    content.isSrgb = png_get_valid(png, info, PNG_INFO_sRGB) != 0;
    for (png_uint_32 y = 0; y < content.height; ++y) {
        const png_bytep row = png_get_rows(png, info)[y];
        content.rows.emplace_back(row, row + png_get_rowbytes(png, info));
    }
    png_destroy_read_struct(&png, &info, nullptr);
    return content;
}

Content written(const Image& image, const Wx::ImageSaveSettings& settings,
                AlphaKind alpha = AlphaKind::STRAIGHT)
{
    std::ostringstream stream;
    EXPECT_FALSE(writePng(stream, Viewer::Picture(L"picture", image, alpha), settings, [](float) {
                     return true;
                 }).has_value());
    return read(stream.str());
}

// Takes the first bytes and fails then, like a full disk.
struct FullDisk : std::stringbuf
{
    std::streamsize room = 20;

    std::streamsize xsputn(const char* bytes, std::streamsize count) override
    {
        room -= count;
        return room < 0 ? 0 : std::stringbuf::xsputn(bytes, count);
    }
};

} // namespace

TEST(PngWriterTest, bytes_comeBackWithTheTopRowFirst)
{
    const Content content = written(Tests::placesAsFloats(3, 2, 1.0f), {ColorFormat::UINT8_RGB, false});
    EXPECT_EQ(content.width, 3u);
    EXPECT_EQ(content.height, 2u);
    EXPECT_EQ(content.bits, 8);
    EXPECT_EQ(content.channels, 3);
    EXPECT_TRUE(content.isSrgb);
    EXPECT_EQ(content.rows[0], (std::vector<png_byte>{0, 0, 128, 4, 0, 128, 8, 0, 128}));
    EXPECT_EQ(content.rows[1], (std::vector<png_byte>{0, 4, 128, 4, 4, 128, 8, 4, 128}));
}

TEST(PngWriterTest, alpha_isWrittenIfWanted)
{
    const Content content = written(Tests::placesAsFloats(1, 1, 1.0f), {ColorFormat::DEFAULT, true});
    EXPECT_EQ(content.channels, 4);
    EXPECT_EQ(content.rows[0], (std::vector<png_byte>{0, 0, 128, 191}));
}

TEST(PngWriterTest, associatedColours_areDividedByAlpha)
{
    const Content content = written(Tests::rowOfFloats({{0.25f, 0.5f, 0.0f, 0.5f}}, 2.2f),
                                    {ColorFormat::UINT16_RGB, true}, AlphaKind::ASSOCIATED);
    // 65535 * 0.5 ^ (1 / 2.2) is 47823.51.
    EXPECT_EQ(content.rows[0], (std::vector<png_byte>{0xba, 0xd0, 0xff, 0xff, 0, 0, 0x80, 0}));
}

TEST(PngWriterTest, words_areWrittenHighByteFirst)
{
    const Content content = written(Tests::rowOfFloats({{1.0f / 65535.0f, 0.5f, 1.0f, 0.25f}}, 1.0f),
                                    {ColorFormat::UINT16_RGB, true});
    EXPECT_EQ(content.bits, 16);
    EXPECT_EQ(content.rows[0], (std::vector<png_byte>{0, 1, 0x80, 0, 0xff, 0xff, 0x40, 0}));
}

TEST(PngWriterTest, progress_growsWithTheRowsAndCanStopThem)
{
    std::ostringstream whole;
    std::vector<float> shares;
    const Viewer::Picture picture(L"picture", Tests::placesAsFloats(64, 4, 1.0f));
    EXPECT_FALSE(writePng(whole, picture, {}, [&](float share) {
                     shares.push_back(share);
                     return true;
                 }).has_value());
    EXPECT_EQ(shares, (std::vector<float>{0.0f, 0.25f, 0.5f, 0.75f}));

    std::ostringstream part;
    EXPECT_FALSE(writePng(part, picture, {}, [](float share) { return share < 0.5f; }).has_value());
    EXPECT_LT(part.str().size(), whole.str().size());
}

TEST(PngWriterTest, streamThatFails_isAnError)
{
    FullDisk disk;
    std::ostream stream(&disk);
    EXPECT_EQ(writePng(stream, Viewer::Picture(L"picture", Tests::placesAsFloats(64, 64, 1.0f)), {},
                       [](float) { return true; }),
              String(L"the file cannot be written"));
}
