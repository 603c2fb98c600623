// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MemoryImages.h"

#include <wx/mstream.h>

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

using namespace Nolvex::Wx;

namespace {

// Encoded data as words, the form in which artwork is compiled in.
struct Encoded
{
    std::vector<unsigned> words;
    int size = 0;
};

Encoded encode(const wxImage& image, wxBitmapType type)
{
    wxMemoryOutputStream stream;
    EXPECT_TRUE(image.SaveFile(stream, type));
    Encoded encoded;
    encoded.size = static_cast<int>(stream.GetSize());
    encoded.words.resize(stream.GetSize() / sizeof(unsigned) + 1);
    stream.CopyTo(encoded.words.data(), stream.GetSize());
    return encoded;
}

wxImage testPicture()
{
    wxImage image(5, 3);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x)
            image.SetRGB(x, y, static_cast<unsigned char>(50 * x), static_cast<unsigned char>(100 * y), 7);
    }
    return image;
}

bool samePixels(const wxImage& a, const wxImage& b)
{
    return a.IsOk() && b.IsOk() && a.GetSize() == b.GetSize() &&
           std::memcmp(a.GetData(), b.GetData(),
                       static_cast<std::size_t>(a.GetWidth() * a.GetHeight() * 3)) == 0;
}

} // namespace

TEST(MemoryImagesTest, losslessFormats_areDecodedExactly)
{
    for (const wxBitmapType type : {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_TIFF}) {
        const Encoded encoded = encode(testPicture(), type);
        EXPECT_TRUE(samePixels(convertMemoryToImage(encoded.words.data(), encoded.size, type), testPicture()))
            << type;
        EXPECT_TRUE(samePixels(convertMemoryToImage(encoded.words.data(), encoded.size, wxBITMAP_TYPE_ANY),
                               testPicture()))
            << type;
    }
}

TEST(MemoryImagesTest, bitmap_hasTheImagesPixels)
{
    const Encoded encoded = encode(testPicture(), wxBITMAP_TYPE_PNG);
    const wxBitmap bitmap = convertMemoryToBitmap(encoded.words.data(), encoded.size, wxBITMAP_TYPE_ANY);
    ASSERT_TRUE(bitmap.IsOk());
    EXPECT_TRUE(samePixels(bitmap.ConvertToImage(), testPicture()));
}

TEST(MemoryImagesTest, wrongType_isInvalid)
{
    const Encoded encoded = encode(testPicture(), wxBITMAP_TYPE_PNG);
    EXPECT_FALSE(convertMemoryToImage(encoded.words.data(), encoded.size, wxBITMAP_TYPE_GIF).IsOk());
}

TEST(MemoryImagesTest, nothing_isInvalid)
{
    const unsigned word = 0;
    EXPECT_FALSE(convertMemoryToImage(nullptr, 10, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(convertMemoryToImage(&word, 0, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(convertMemoryToImage(&word, -5, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(convertMemoryToImage(&word, 4, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(convertMemoryToBitmap(&word, 4, wxBITMAP_TYPE_ANY).IsOk());
}

TEST(MemoryImagesTest, pngCutAnywhereInItsPixels_isInvalidAndSilent)
{
    const Encoded encoded = encode(testPicture(), wxBITMAP_TYPE_PNG);
    const int pixelsStart = 33; // behind signature and header
    for (int size = 1; size < pixelsStart + 12; ++size)
        EXPECT_FALSE(convertMemoryToImage(encoded.words.data(), size, wxBITMAP_TYPE_ANY).IsOk()) << size;
}

TEST(MemoryImagesTest, windowsBitmapCutInItsPixels_isInvalid)
{
    const Encoded encoded = encode(testPicture(), wxBITMAP_TYPE_BMP);
    const int padding = 1; // rows are padded to four bytes, behind the last pixel too
    for (int size = 1; size < encoded.size - padding; ++size)
        EXPECT_FALSE(convertMemoryToImage(encoded.words.data(), size, wxBITMAP_TYPE_ANY).IsOk()) << size;
}

TEST(MemoryImagesTest, headerThatClaimsTwoBillionPixels_isInvalid)
{
    // A Windows bitmap of 46341 x 46341 pixels at 24 bits with no pixel behind its header.
    const unsigned char header[] = {'B', 'M', 54, 0, 0, 0,   0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0,
                                    5,   181, 0,  0, 5, 181, 0, 0, 1, 0, 24, 0, 0, 0, 0,  0, 0, 0,
                                    0,   0,   0,  0, 0, 0,   0, 0, 0, 0, 0,  0, 0, 0, 0,  0, 0, 0};
    std::vector<unsigned> words(sizeof header / sizeof(unsigned) + 1);
    std::memcpy(words.data(), header, sizeof header);
    EXPECT_FALSE(convertMemoryToImage(words.data(), sizeof header, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(convertMemoryToBitmap(words.data(), sizeof header, wxBITMAP_TYPE_ANY).IsOk());
}

TEST(MemoryImagesTest, headersWithoutPixels_areInvalidAndRaiseNoAssertion)
{
    // Every assertion of wxWidgets makes the test program fail.
    for (const auto& [width, height] : {std::pair<unsigned char, unsigned char>{0, 5}, {5, 0}, {0, 0}}) {
        unsigned char header[54] = {'B', 'M', 54, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40};
        header[18] = width;
        header[22] = height;
        header[26] = 1;
        header[28] = 24;
        std::vector<unsigned> words(sizeof header / sizeof(unsigned) + 1);
        std::memcpy(words.data(), header, sizeof header);
        EXPECT_FALSE(convertMemoryToImage(words.data(), sizeof header, wxBITMAP_TYPE_ANY).IsOk());
    }
}
