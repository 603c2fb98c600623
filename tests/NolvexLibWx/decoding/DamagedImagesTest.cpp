// SPDX-License-Identifier: MIT
// Damaged pictures of every kind are refused or decoded and never crash the program. wxWidgets' decoders are
// not instrumented, so that a defect in them ends the test program by a signal or an invalid heap.
#include "NolvexLibWx/MemoryImages.h"
#include "support/PictureFiles.h"

#include <wx/mstream.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>

using namespace Nolvex;
using Tests::contentOf;
using Tests::pictureFile;
using Tests::picturesOfAllKinds;

namespace {

constexpr wxBitmapType FORMATS[] = {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_ICO,
                                    wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_GIF,  wxBITMAP_TYPE_TIFF,
                                    wxBITMAP_TYPE_TGA};

wxImage convert(ArrayView<const std::byte> bytes, wxBitmapType type = wxBITMAP_TYPE_ANY)
{
    // A block of exactly this size lets the address sanitizer see a read behind it.
    const Array<std::byte> exact(bytes.begin(), bytes.end());
    return Wx::convertMemoryToImage(reinterpret_cast<const unsigned*>(exact.data()),
                                    static_cast<int>(exact.size()), type);
}

// Changes one to four bytes, often to values that break headers, and sometimes removes or repeats some bytes.
Array<std::byte> mutated(const Array<std::byte>& file, std::mt19937& random)
{
    constexpr int EXTREMES[] = {0, 1, 0x7F, 0x80, 0xFF};
    Array<std::byte> bytes = file;
    for (std::size_t count = 1 + random() % 4; count > 0; --count) {
        // Half of the changes hit the first bytes, which contain the headers.
        const std::size_t range = random() % 2 == 0 ? bytes.size() : std::min<std::size_t>(bytes.size(), 64);
        const bool extreme = random() % 2 == 0;
        bytes[random() % range] =
            static_cast<std::byte>(extreme ? EXTREMES[random() % 5] : static_cast<int>(random() % 256));
    }
    const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(random() % bytes.size());
    if (random() % 8 == 0)
        bytes.erase(place);
    else if (random() % 8 == 0)
        bytes.insert(place, std::byte(random() % 256));
    return bytes;
}

void expectSound(const wxImage& image)
{
    if (image.IsOk()) {
        EXPECT_GT(image.GetWidth(), 0);
        EXPECT_GT(image.GetHeight(), 0);
    }
}

// Returns a file that claims to hold a picture of this size but contains no pixel.
Array<std::byte> tgaHeader(int kind, int width, int height, int bits)
{
    Array<std::byte> file(18);
    const auto set = [&](std::size_t place, int value) { file[place] = static_cast<std::byte>(value); };
    set(2, kind);
    set(12, width & 0xFF);
    set(13, width >> 8);
    set(14, height & 0xFF);
    set(15, height >> 8);
    set(16, bits);
    return file;
}

void set32(Array<std::byte>& file, std::size_t place, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        file[place + i] = static_cast<std::byte>(value >> (8 * i));
}

} // namespace

TEST(DamagedImagesTest, picturesCutAtEachByte_crashNothing)
{
    for (const Io::Path& path : picturesOfAllKinds()) {
        SCOPED_TRACE(path.nativeStr().toUtf8());
        const Array<std::byte> file = contentOf(path);
        for (std::size_t size = 1; size < file.size(); ++size)
            expectSound(convert(ArrayView<const std::byte>(file).first(size)));
    }
}

TEST(DamagedImagesTest, mutatedPictures_crashNothing)
{
    constexpr int MUTATIONS = 400;
    std::mt19937 random(20230506);
    for (const Io::Path& path : picturesOfAllKinds()) {
        SCOPED_TRACE(path.nativeStr().toUtf8());
        const Array<std::byte> file = contentOf(path);
        for (int i = 0; i < MUTATIONS; ++i)
            expectSound(convert(mutated(file, random)));
    }
}

TEST(DamagedImagesTest, picturesTakenForAnotherFormat_crashNothing)
{
    for (const Io::Path& path : picturesOfAllKinds()) {
        SCOPED_TRACE(path.nativeStr().toUtf8());
        const Array<std::byte> file = contentOf(path);
        for (const wxBitmapType format : FORMATS)
            expectSound(convert(file, format));
    }
}

TEST(DamagedImagesTest, gifCutBehindADataBlock_isRefused)
{
    // wxWidgets' decoder takes the end of the file for the size of the next block: 4 GiB.
    const Array<std::byte> file = contentOf(pictureFile("pattern.gif"));
    constexpr std::size_t FIRST_BLOCK = 13 + 768 + 10 + 1;
    const std::size_t end = FIRST_BLOCK + 1 + std::to_integer<std::size_t>(file[FIRST_BLOCK]);
    ASSERT_LT(end, file.size());
    EXPECT_FALSE(convert(ArrayView<const std::byte>(file).first(FIRST_BLOCK)).IsOk());
    EXPECT_FALSE(convert(ArrayView<const std::byte>(file).first(end - 3)).IsOk());
}

TEST(DamagedImagesTest, gifWithLargeCodes_isRefused)
{
    Array<std::byte> file = contentOf(pictureFile("pattern.gif"));
    constexpr std::size_t CODE_SIZE = 13 + 768 + 10;
    for (const int size : {0, 9, 12, 31, 255}) {
        file[CODE_SIZE] = static_cast<std::byte>(size);
        EXPECT_FALSE(convert(file).IsOk()) << size;
    }
}

TEST(DamagedImagesTest, tgaPaletteThatStartsLate_isRefused)
{
    Array<std::byte> file = contentOf(pictureFile("formats/palette.tga"));
    ASSERT_TRUE(convert(file, wxBITMAP_TYPE_TGA).IsOk());
    file[4] = std::byte(0xFF);
    EXPECT_FALSE(convert(file, wxBITMAP_TYPE_TGA).IsOk());
}

TEST(DamagedImagesTest, tgaKindsWithoutTheirPalette_areRefused)
{
    for (const int kind : {1, 2, 3, 9, 10, 11}) {
        for (const int bits : {8, 16, 24, 32}) {
            for (const int paletteBits : {0, 24}) {
                Array<std::byte> file = tgaHeader(kind, 4, 4, bits);
                file[1] = static_cast<std::byte>(paletteBits == 0 ? 0 : 1);
                file[5] = std::byte(2);
                file[7] = static_cast<std::byte>(paletteBits);
                file.resize(200);
                expectSound(convert(file, wxBITMAP_TYPE_TGA));
            }
        }
    }
    Array<std::byte> mapped = tgaHeader(1, 4, 4, 8);
    mapped.resize(200);
    EXPECT_FALSE(convert(mapped, wxBITMAP_TYPE_TGA).IsOk());
}

TEST(DamagedImagesTest, bmpPixelsBeyondTheirPalette_areRefused)
{
    Array<std::byte> file = contentOf(pictureFile("formats/palette.bmp"));
    ASSERT_TRUE(convert(file).IsOk());
    set32(file, 10, 0);
    set32(file, 46, 2); // colours: the rest of the palette is pixels now
    EXPECT_FALSE(convert(file).IsOk());
}

TEST(DamagedImagesTest, headersThatClaimMoreThanTheFileHolds_areRefused)
{
    EXPECT_FALSE(convert(tgaHeader(2, 0xFFFF, 0x2000, 24), wxBITMAP_TYPE_TGA).IsOk());
    EXPECT_FALSE(convert(tgaHeader(10, 0xFFFF, 0x2000, 24), wxBITMAP_TYPE_TGA).IsOk());
    Array<std::byte> bmp = contentOf(pictureFile("pattern.bmp"));
    set32(bmp, 18, 26'000);
    set32(bmp, 22, 26'000);
    EXPECT_FALSE(convert(bmp).IsOk());
    Array<std::byte> tiff = contentOf(pictureFile("pattern.tiff"));
    set32(tiff, 18, 26'000);
    set32(tiff, 30, 26'000);
    EXPECT_FALSE(convert(tiff).IsOk());
    Array<std::byte> jpeg = contentOf(pictureFile("formats/progressive.jpg"));
    constexpr std::byte PROGRESSIVE[] = {std::byte(0xFF), std::byte(0xC2)};
    const auto frame = std::search(jpeg.begin(), jpeg.end(), std::begin(PROGRESSIVE), std::end(PROGRESSIVE));
    ASSERT_NE(frame, jpeg.end());
    std::fill_n(frame + 5, 4, std::byte(0x60));
    EXPECT_FALSE(convert(jpeg).IsOk());
}

TEST(DamagedImagesTest, damagedJpeg_isDecodedWithoutAWord)
{
    Array<std::byte> file = contentOf(pictureFile("pattern.jpg"));
    std::fill(file.end() - 100, file.end() - 90, std::byte(0xFF));
    testing::internal::CaptureStderr();
    convert(file);
    convert(ArrayView<const std::byte>(file).first(file.size() - 60));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(DamagedImagesTest, streamThatEndsWithinAPicture_isInvalid)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.gif"));
    wxMemoryInputStream whole(file.data(), file.size());
    EXPECT_TRUE(Wx::convertStreamToImage(whole, wxBITMAP_TYPE_ANY).IsOk());
    wxMemoryInputStream cut(file.data(), file.size() - 20);
    EXPECT_FALSE(Wx::convertStreamToImage(cut, wxBITMAP_TYPE_ANY).IsOk());
    wxMemoryInputStream empty(file.data(), 0);
    EXPECT_FALSE(Wx::convertStreamToImage(empty, wxBITMAP_TYPE_ANY).IsOk());
}
