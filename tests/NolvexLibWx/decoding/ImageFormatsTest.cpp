// SPDX-License-Identifier: MIT
// Tests how decodeWholeImage decodes each kind of the seven formats.
#include "NolvexLibWx/MemoryImages.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

#include <initializer_list>

using namespace Nolvex;
using Tests::contentOf;
using Tests::pictureFile;

namespace {

constexpr int WIDTH = 16;
constexpr int HEIGHT = 10;

Expected<wxImage, String> decodeFile(const std::string& name)
{
    return Wx::decodeWholeImage(contentOf(pictureFile("formats/" + name)));
}

wxImage decoded(const std::string& name)
{
    const Expected<wxImage, String> image = decodeFile(name);
    EXPECT_TRUE(image.hasValue()) << name << ": " << image.error().toUtf8();
    return image ? *image : wxImage(1, 1);
}

// Returns the largest difference from the pattern, in bytes, or 256 if the size differs.
int distanceFromPattern(const wxImage& image)
{
    if (image.GetSize() != wxSize(WIDTH, HEIGHT))
        return 256;
    int largest = 0;
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x)
            largest = std::max({largest, std::abs(image.GetRed(x, y) - 16 * x),
                                std::abs(image.GetGreen(x, y) - 25 * y % 256),
                                std::abs(image.GetBlue(x, y) - 3 * x * y % 256)});
    }
    return largest;
}

bool hasPatternsAlpha(const wxImage& image)
{
    bool same = image.HasAlpha();
    for (int x = 0; same && x < WIDTH; ++x)
        same = image.GetAlpha(x, 3) == 255 - 16 * x;
    return same;
}

Array<std::byte> bytesOf(std::initializer_list<int> values)
{
    Array<std::byte> bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

// Decodes a run-length encoded BMP file of 4 x 3 pixels and four shades of red: 0, 50, 100 and 150.
Expected<wxImage, String> decodeRuns(std::initializer_list<int> codes)
{
    Array<std::byte> file =
        bytesOf({'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 70, 0, 0,  0, 40, 0, 0,   0, 4, 0, 0,   0, 3, 0,
                 0,   0,   1, 0, 8, 0, 1, 0, 0, 0, 0,  0, 0,  0, 0,  0, 0,   0, 0, 0, 0,   0, 4, 0,
                 0,   0,   0, 0, 0, 0, 0, 0, 0, 0, 0,  0, 50, 0, 0,  0, 100, 0, 0, 0, 150, 0});
    const Array<std::byte> data = bytesOf(codes);
    file.insert(file.end(), data.begin(), data.end());
    return Wx::decodeWholeImage(file);
}

// Returns the reds of such a file from the top row to the bottom row.
Array<int> redsOf(const Expected<wxImage, String>& image)
{
    Array<int> reds;
    for (int y = 0; image && y < image->GetHeight(); ++y) {
        for (int x = 0; x < image->GetWidth(); ++x)
            reds.push_back(image->GetRed(x, y));
    }
    return reds;
}

} // namespace

TEST(ImageFormatsTest, losslessKinds_showThePatternToTheByte)
{
    for (const char* name :
         {"palette.bmp",      "runs8.bmp",         "alpha.bmp",      "top-down.bmp", "core.bmp",
          "interlaced.gif",   "local-palette.gif", "animated.gif",   "runs.tga",     "palette.tga",
          "palette-runs.tga", "alpha.tga",         "interlaced.png", "palette.png",  "sixteen.png",
          "lzw.tiff",         "deflate.tiff",      "packbits.tiff",  "tiled.tiff",   "planar.tiff",
          "palette.tiff",     "palette.ico",       "png.ico",        "several.ico"})
        EXPECT_EQ(distanceFromPattern(decoded(name)), 0) << name;
}

TEST(ImageFormatsTest, lossyKinds_showThePatternWithinTheirLosses)
{
    constexpr int LOST_BY_JPEG = 120; // colours are stored for two by two pixels
    for (const char* name : {"progressive.jpg", "jpeg.tiff"})
        EXPECT_LT(distanceFromPattern(decoded(name)), LOST_BY_JPEG) << name;
}

TEST(ImageFormatsTest, fiveAndSixBits_areSpreadOverTheRangeOfAByte)
{
    for (const char* name : {"fields565.bmp", "rgb555.bmp", "rgb555.tga"}) {
        const wxImage image = decoded(name);
        EXPECT_LE(distanceFromPattern(image), 8) << name;
    }
    // The value is 31 of 31, which becomes 248 if the bits are only shifted.
    Array<std::byte> file = contentOf(pictureFile("formats/fields565.bmp"));
    std::fill(file.end() - 2 * WIDTH, file.end(), std::byte(0xFF));
    const Expected<wxImage, String> white = Wx::decodeWholeImage(file);
    ASSERT_TRUE(white.hasValue());
    EXPECT_EQ(white->GetRed(0, 0), 255);
    EXPECT_EQ(white->GetGreen(0, 0), 255);
    EXPECT_EQ(white->GetBlue(0, 0), 255);
}

TEST(ImageFormatsTest, alphaOfBitFieldsAndOfTga_isRead)
{
    EXPECT_TRUE(hasPatternsAlpha(decoded("alpha.bmp")));
    EXPECT_TRUE(hasPatternsAlpha(decoded("alpha.tga")));
}

TEST(ImageFormatsTest, rowsThatRunLeftwards_areTurnedRound)
{
    EXPECT_EQ(distanceFromPattern(decoded("leftwards.tga")), 0);
    EXPECT_EQ(distanceFromPattern(decoded("leftwards-top-down.tga")), 0);
}

TEST(ImageFormatsTest, placeOfATga_doesNotChangeItsSize)
{
    EXPECT_EQ(distanceFromPattern(decoded("origin.tga")), 0);
}

TEST(ImageFormatsTest, everyOrientationOfATiff_standsUpright)
{
    for (int orientation = 1; orientation <= 8; ++orientation)
        EXPECT_EQ(distanceFromPattern(decoded("orientation-" + std::to_string(orientation) + ".tiff")), 0)
            << orientation;
}

TEST(ImageFormatsTest, greyWithAlpha_standsUprightToo)
{
    const wxImage image = decoded("grey-alpha-orientation-6.tiff");
    ASSERT_EQ(image.GetSize(), wxSize(WIDTH, HEIGHT));
    EXPECT_TRUE(hasPatternsAlpha(image));
    for (int x = 0; x < WIDTH; ++x)
        EXPECT_EQ(image.GetRed(x, 7), 16 * x);
}

TEST(ImageFormatsTest, paletteWithAlpha_isRefusedWithItsReason)
{
    const Expected<wxImage, String> image = decodeFile("palette-alpha.tiff");
    ASSERT_FALSE(image.hasValue());
    EXPECT_EQ(image.error(), L"it has a palette and alpha, which is not supported");
}

TEST(ImageFormatsTest, runsOfFourBits_alternateTheirColours)
{
    const wxImage image = decoded("runs4.bmp");
    ASSERT_EQ(image.GetSize(), wxSize(WIDTH, HEIGHT));
    for (int x = 0; x < WIDTH; ++x)
        EXPECT_EQ(image.GetRed(x, 4), 17 * x);
}

TEST(ImageFormatsTest, emptyRowsOfRuns_keepTheirPlace)
{
    // The file has a bottom row of colour 3, an empty row, and a top row of colour 1.
    EXPECT_EQ(redsOf(decodeRuns({4, 3, 0, 0, 0, 0, 4, 1, 0, 1})),
              (Array<int>{50, 50, 50, 50, 0, 0, 0, 0, 150, 150, 150, 150}));
}

TEST(ImageFormatsTest, jumpsOfRuns_leaveTheFirstColourBehind)
{
    EXPECT_EQ(redsOf(decodeRuns({1, 3, 0, 2, 1, 1, 2, 2, 0, 1})),
              (Array<int>{0, 0, 0, 0, 0, 0, 100, 100, 150, 0, 0, 0}));
}

TEST(ImageFormatsTest, runsWithoutAnEndMarker_endWithTheLastPixel)
{
    EXPECT_EQ(redsOf(decodeRuns({4, 3, 0, 0, 4, 2, 0, 0, 4, 1})),
              (Array<int>{50, 50, 50, 50, 100, 100, 100, 100, 150, 150, 150, 150}));
}

TEST(ImageFormatsTest, runsThatLeaveThePicture_areRefused)
{
    EXPECT_FALSE(decodeRuns({4, 3, 0, 2, 0, 200, 4, 1, 0, 1}).hasValue()) << "above the picture";
    EXPECT_FALSE(decodeRuns({0, 2, 200, 0, 4, 1, 0, 1}).hasValue()) << "right of the picture";
    EXPECT_FALSE(decodeRuns({4, 9, 0, 1}).hasValue()) << "a colour that the palette does not have";
    EXPECT_FALSE(decodeRuns({0, 9, 1, 1}).hasValue()) << "ends within a literal";
    EXPECT_FALSE(decodeRuns({4, 1}).hasValue()) << "ends within the picture";
}

TEST(ImageFormatsTest, longLiteralsOfRuns_writeNothingBehindTheirRow)
{
    EXPECT_EQ(redsOf(decodeRuns({0, 6, 1, 1, 1, 1, 3, 3, 0, 1})),
              (Array<int>{0, 0, 0, 0, 0, 0, 0, 0, 50, 50, 50, 50}));
}

TEST(ImageFormatsTest, jpegWithoutItsEnd_isRefusedAsAWhole_butDecoded)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.jpg"));
    const ArrayView<const std::byte> cut = ArrayView<const std::byte>(file).first(file.size() - 20);
    const Expected<wxImage, String> image = Wx::decodeWholeImage(cut);
    ASSERT_FALSE(image.hasValue());
    EXPECT_EQ(image.error(), L"it ends before its last pixel");
    EXPECT_TRUE(Wx::convertMemoryToImage(reinterpret_cast<const unsigned*>(cut.data()),
                                         static_cast<int>(cut.size()), wxBITMAP_TYPE_ANY)
                    .IsOk());
}
