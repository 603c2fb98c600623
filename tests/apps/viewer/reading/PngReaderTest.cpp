// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PngReader.h"

#include "support/PictureFiles.h"

#include <wx/image.h>

#include <gtest/gtest.h>

#include <png.h>
#include <zlib.h>

#include <cmath>
#include <cstdint>
#include <random>

using namespace Nolvex;
using Tests::contentOf;
using Tests::pictureFile;
using Viewer::PngReader;

namespace {

Expected<Image, String> imageOf(ArrayView<const std::byte> file)
{
    Expected<Viewer::ReadImage, String> read = PngReader().read(file, 0, {});
    return read ? Expected<Image, String>(std::move(read->image)) : Unexpected{read.error()};
}

Array<Io::Path> soundFiles()
{
    Array<Io::Path> files;
    for (const Io::Path& path : Tests::picturesOfAllKinds()) {
        if (path.native().extension() == ".png")
            files.push_back(path);
    }
    return files;
}

void append(png_structp png, png_bytep bytes, png_size_t count)
{
    auto& file = *static_cast<Array<std::byte>*>(png_get_io_ptr(png));
    const auto* first = reinterpret_cast<const std::byte*>(bytes);
    file.insert(file.end(), first, first + count);
}

/// Makes a file of one grey pixel with a chunk that tells its gamma, if that is not 0.
Array<std::byte> fileWithGamma(double gamma, bool isSrgb)
{
    Array<std::byte> file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_benign_errors(png, 1); // a gamma that is not that of sRGB
    png_set_write_fn(png, &file, append, nullptr);
    png_set_IHDR(png, info, 1, 1, 8, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (gamma > 0)
        png_set_gAMA(png, info, gamma);
    if (isSrgb)
        png_set_sRGB(png, info, PNG_sRGB_INTENT_PERCEPTUAL);
    png_write_info(png, info);
    const png_byte row[1] = {77};
    png_write_row(png, row);
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

float gammaOf(double gamma, bool isSrgb = false)
{
    const auto image = imageOf(fileWithGamma(gamma, isSrgb));
    return image ? image->descriptor().gamma : -1.0f;
}

int byteOf(float value)
{
    return static_cast<int>(std::lround(value * 255));
}

} // namespace

TEST(PngReaderTest, sixteenBits_areReadWhole)
{
    const auto image = imageOf(contentOf(pictureFile("grey16.png")));
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->descriptor().format, PixelFormat::UINT16_GREY);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 16; ++x) {
            const float read = image->getRgba(x, 9 - y).r * 65535.0f;
            EXPECT_EQ(std::lround(read), 4096 * x + 400 * y) << x << ", " << y;
        }
    }
}

TEST(PngReaderTest, allKinds_areWhatWxWidgetsReads)
{
    ASSERT_GE(soundFiles().size(), 5u);
    for (const Io::Path& path : soundFiles()) {
        const auto image = imageOf(contentOf(path));
        ASSERT_TRUE(image.hasValue()) << path.nativeStr().toUtf8();
        const wxImage peer(wxString(path.native().wstring()), wxBITMAP_TYPE_PNG);
        ASSERT_EQ(wxSize(image->descriptor().width, image->descriptor().height), peer.GetSize());
        const bool isWide = Image::getPixelFormatByteCount(image->descriptor().format) % 2 == 0 &&
                            image->descriptor().format != PixelFormat::UINT8_RGBA;
        for (int y = 0; y < peer.GetHeight(); ++y) {
            for (int x = 0; x < peer.GetWidth(); ++x) {
                const Rgb pixel = image->getRgba(x, peer.GetHeight() - 1 - y);
                // wxWidgets cuts 16 bits to the upper byte.
                EXPECT_NEAR(byteOf(pixel.r), peer.GetRed(x, y), isWide ? 1 : 0);
                EXPECT_NEAR(byteOf(pixel.g), peer.GetGreen(x, y), isWide ? 1 : 0);
                EXPECT_NEAR(byteOf(pixel.b), peer.GetBlue(x, y), isWide ? 1 : 0);
                if (peer.HasAlpha()) {
                    EXPECT_NEAR(byteOf(pixel.a), peer.GetAlpha(x, y), isWide ? 1 : 0);
                }
            }
        }
    }
}

TEST(PngReaderTest, gammaOfTheFile_isKeptUnlessItIsThatOfDisplays)
{
    EXPECT_EQ(gammaOf(0.0), 1.0f);
    EXPECT_EQ(gammaOf(1 / 2.2), 1.0f);
    EXPECT_EQ(gammaOf(1.0), 2.2f);
    EXPECT_NEAR(gammaOf(1 / 1.8), 2.2f / 1.8f, 1e-4f);
    EXPECT_EQ(gammaOf(1.0, true), 1.0f) << "sRGB counts more";
    EXPECT_EQ(gammaOf(0.001), 1.0f) << "nonsense";
}

TEST(PngReaderTest, textsAndGamma_areMetadata)
{
    Array<std::byte> file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, append, nullptr);
    png_set_IHDR(png, info, 1, 1, 8, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_gAMA(png, info, 0.5);
    char software[] = "Software";
    char title[] = "Title";
    char latin[] = "J\xf6rg";
    char utf8[] = "J\xc3\xb6rg";
    png_text before{};
    before.compression = PNG_TEXT_COMPRESSION_NONE;
    before.key = software;
    before.text = latin;
    png_set_text(png, info, &before, 1);
    png_write_info(png, info);
    const png_byte row[1] = {77};
    png_write_row(png, row);
    png_text after{};
    after.compression = PNG_ITXT_COMPRESSION_zTXt;
    after.key = title;
    after.text = utf8;
    png_set_text(png, info, &after, 1);
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);

    const auto read = PngReader().read(file, 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(read->metadata,
              (Array<Viewer::MetadataEntry>{
                  {L"Software", L"J\u00F6rg"}, {L"Title", L"J\u00F6rg"}, {L"gamma", L"0.5"}}));
}

TEST(PngReaderTest, everyCut_isAnError)
{
    const Array<std::byte> whole = contentOf(pictureFile("pattern-alpha.png"));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(imageOf(ArrayView<const std::byte>(whole).first(length)).hasValue()) << length;
}

TEST(PngReaderTest, sizeThatTheFileCannotFill_isRefusedBeforeMemoryIsTaken)
{
    const auto image = imageOf(contentOf(pictureFile("huge-claim.png")));
    ASSERT_FALSE(image.hasValue());
    EXPECT_EQ(image.error(), String(L"it is damaged or cut off"));
}

TEST(PngReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(20); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const Io::Path& path : soundFiles()) {
        const Array<std::byte> whole = contentOf(path);
        for (int run = 0; run < 300; ++run) {
            Array<std::byte> file = whole;
            for (int i = 0; i < 4; ++i)
                file[random() % file.size()] = static_cast<std::byte>(random());
            const auto image = imageOf(file);
            EXPECT_TRUE(image.hasValue() || image.error().find(L"it ") == 0);
        }
    }
}

TEST(PngReaderTest, framesOfAnAnimation_areTold)
{
    const Array<std::byte> still = contentOf(pictureFile("pattern.png"));
    // A chunk of 8 bytes after the first chunk: three frames, shown for ever. Its checksum follows.
    const unsigned char chunk[] = {0, 0, 0, 8, 'a', 'c', 'T', 'L', 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0};
    constexpr std::ptrdiff_t HEADER_END = 33;
    Array<std::byte> animated = still;
    animated.insert(animated.begin() + HEADER_END, reinterpret_cast<const std::byte*>(std::begin(chunk)),
                    reinterpret_cast<const std::byte*>(std::end(chunk)));
    const auto checksum = static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(animated.data()) + HEADER_END + 4, 12));
    for (int i = 0; i < 4; ++i)
        animated[HEADER_END + 16 + i] = static_cast<std::byte>(checksum >> (24 - 8 * i));
    const auto read = PngReader().read(animated, 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(read->omissions, (Array<String>{L"It has 3 frames, of which the first is shown."}));
    EXPECT_TRUE(PngReader().read(still, 0, {})->omissions.empty());
}

TEST(PngReaderTest, progress_growsAndCanStopTheReading)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/interlaced.png"));
    float last = -1.0f;
    EXPECT_TRUE(PngReader()
                    .read(file, 0,
                          [&last](float share) {
                              EXPECT_GE(share, last);
                              last = share;
                              return true;
                          })
                    .hasValue());
    EXPECT_GT(last, 0.9f);
    EXPECT_LT(last, 1.0f);
    EXPECT_FALSE(PngReader().read(file, 0, [](float share) { return share < 0.5f; }).hasValue());
}
