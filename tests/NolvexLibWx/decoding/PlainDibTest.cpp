// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/PlainDib.h"

#include "Refusals.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Decoding::DibHeader;
using Decoding::toPlainBmp;
using Compression = DibHeader::Compression;

namespace {

constexpr std::ptrdiff_t PIXELS = 54;

/// Returns a header for two pixels side by side, with a palette of black and of the colour 10, 20, 30 at the
/// start of the file if the pixels are runs.
DibHeader headerOf(Compression compression, std::uint32_t bits)
{
    DibHeader header;
    header.width = 2;
    header.height = 1;
    header.bits = bits;
    header.compression = compression;
    header.colours = bits == 8 ? 2 : 0;
    return header;
}

Array<std::byte> withPalette(std::initializer_list<int> codes)
{
    return Tests::joined(Tests::fileOf({0, 0, 0, 0, 10, 20, 30, 0}), Tests::fileOf(codes));
}

/// Returns the bytes of the pixels, or nothing if the file is refused.
Array<std::byte> pixelsOf(const Expected<Array<std::byte>, String>& file)
{
    return file ? Array<std::byte>(file->begin() + PIXELS, file->end()) : Array<std::byte>();
}

} // namespace

TEST(PlainDibTest, headerOfTheNewFile_tellsItsFormat)
{
    DibHeader header = headerOf(Compression::NONE, 16);
    header.isTopDown = true;
    const auto file = toPlainBmp(Tests::fileOf({0, 0, 0, 0}), header, 0);
    ASSERT_TRUE(file.hasValue());
    EXPECT_EQ(Array<std::byte>(file->begin(), file->begin() + PIXELS),
              Tests::fileOf({'B', 'M', 62, 0, 0,    0,    0,    0,    0, 0, 54, 0, 0, 0, 40, 0, 0, 0,
                             2,   0,   0,  0, 0xFF, 0xFF, 0xFF, 0xFF, 1, 0, 24, 0, 0, 0, 0,  0, 0, 0,
                             0,   0,   0,  0, 0,    0,    0,    0,    0, 0, 0,  0, 0, 0, 0,  0, 0, 0}));
}

TEST(PlainDibTest, sixteenBits_areFiveForEachColour)
{
    // The first pixel is pure red, the second has all bits, of which the highest means nothing.
    EXPECT_EQ(
        pixelsOf(toPlainBmp(Tests::fileOf({0x00, 0x7C, 0xFF, 0xFF}), headerOf(Compression::NONE, 16), 0)),
        Tests::fileOf({0, 0, 255, 255, 255, 255, 0, 0}));
}

TEST(PlainDibTest, bitFields_areSpreadOverTheRangeOfAByte)
{
    DibHeader header = headerOf(Compression::BIT_FIELDS, 32);
    header.masks = {0x7, 0xFF00, 0x1FF0000, 0x80000000};
    EXPECT_EQ(pixelsOf(toPlainBmp(Tests::fileOf({0x04, 0x64, 0xFF, 0x81, 0x01, 0, 0, 0}), header, 0)),
              Tests::fileOf({255, 100, 146, 255, 0, 0, 36, 0}));
}

TEST(PlainDibTest, rowsThatAreCutOff_areRefused)
{
    const DibHeader header = headerOf(Compression::NONE, 16);
    EXPECT_TRUE(toPlainBmp(Tests::fileOf({9, 9, 0, 0, 0, 0}), header, 2).hasValue());
    const auto cut = toPlainBmp(Tests::fileOf({9, 9, 0, 0, 0}), header, 2);
    ASSERT_FALSE(cut.hasValue());
    EXPECT_EQ(cut.error(), Tests::ENDS_EARLY);
}

TEST(PlainDibTest, runs_takeTheirColoursFromThePalette)
{
    const DibHeader header = headerOf(Compression::RLE8, 8);
    EXPECT_EQ(pixelsOf(toPlainBmp(withPalette({2, 1}), header, 8)),
              Tests::fileOf({10, 20, 30, 10, 20, 30, 0, 0}));
    EXPECT_EQ(pixelsOf(toPlainBmp(withPalette({1, 1, 0, 1}), header, 8)),
              Tests::fileOf({10, 20, 30, 0, 0, 0, 0, 0}));
}

TEST(PlainDibTest, runsWithoutAnEnd_areRefused)
{
    const DibHeader header = headerOf(Compression::RLE8, 8);
    const auto cut = toPlainBmp(withPalette({1, 1}), header, 8);
    ASSERT_FALSE(cut.hasValue());
    EXPECT_EQ(cut.error(), Tests::ENDS_EARLY);
    EXPECT_FALSE(toPlainBmp(withPalette({2, 2}), header, 8).hasValue()) << "a colour beyond the palette";
}
