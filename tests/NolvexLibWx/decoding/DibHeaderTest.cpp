// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/DibHeader.h"

#include "Refusals.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Decoding::DibHeader;
using Tests::firstOf;
using Compression = DibHeader::Compression;

namespace {

struct Fields
{
    std::uint32_t size = 40;
    std::int32_t width = 5;
    std::int32_t height = 3;
    std::uint32_t bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t colours = 0;
};

void add(Array<std::byte>& file, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        file.push_back(static_cast<std::byte>(value >> (8 * i)));
}

/// Returns the header with `extra` bytes behind it, which are the masks and the palette.
Array<std::byte> headerOf(const Fields& fields, std::size_t extra = 0)
{
    Array<std::byte> file;
    add(file, fields.size, 4);
    add(file, static_cast<std::uint32_t>(fields.width), 4);
    add(file, static_cast<std::uint32_t>(fields.height), 4);
    add(file, 1, 2);
    add(file, fields.bits, 2);
    add(file, fields.compression, 4);
    file.resize(32);
    add(file, fields.colours, 4);
    file.resize(fields.size + extra);
    return file;
}

Optional<DibHeader> read(const Array<std::byte>& file)
{
    return Decoding::readDibHeader(file, 0, false);
}

} // namespace

TEST(DibHeaderTest, infoHeader_isRead)
{
    const Optional<DibHeader> header = read(headerOf({}));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->width, 5);
    EXPECT_EQ(header->height, 3);
    EXPECT_FALSE(header->isTopDown);
    EXPECT_EQ(header->bits, 24u);
    EXPECT_EQ(header->compression, Compression::NONE);
    EXPECT_EQ(header->colours, 0u);
    EXPECT_EQ(header->end, 40u);
}

TEST(DibHeaderTest, coreHeader_hasNumbersOfSixteenBitsAndColoursOfThreeBytes)
{
    Array<std::byte> file = Tests::fileOf({12, 0, 0, 0, 7, 0, 0xFE, 0xFF, 1, 0, 4, 0});
    file.resize(12 + 16 * 3);
    const Optional<DibHeader> header = read(file);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->width, 7);
    EXPECT_EQ(header->height, 2);
    EXPECT_TRUE(header->isTopDown);
    EXPECT_EQ(header->colours, 16u);
    EXPECT_EQ(header->end, file.size());
    EXPECT_FALSE(Decoding::readDibHeader(firstOf(file, file.size() - 1), 0, false));
}

TEST(DibHeaderTest, heightBelowZero_isTopDown)
{
    const Optional<DibHeader> header = read(headerOf({.height = -3}));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->height, 3);
    EXPECT_TRUE(header->isTopDown);
    const Optional<DibHeader> lowest = read(headerOf({.height = std::numeric_limits<std::int32_t>::min()}));
    ASSERT_TRUE(lowest);
    EXPECT_EQ(lowest->height, 0);
}

TEST(DibHeaderTest, heightOfAnIcon_countsTheRowsOfTheMaskToo)
{
    const Optional<DibHeader> header = Decoding::readDibHeader(headerOf({.height = 6}), 0, true);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->height, 3);
}

TEST(DibHeaderTest, depths_areThoseOfTheFormat)
{
    for (const std::uint32_t bits : {1u, 4u, 8u, 16u, 24u, 32u})
        EXPECT_TRUE(read(headerOf({.bits = bits}, 1024))) << bits;
    for (const std::uint32_t bits : {0u, 2u, 15u, 33u})
        EXPECT_FALSE(read(headerOf({.bits = bits}, 1024))) << bits;
}

TEST(DibHeaderTest, compression_fitsTheDepth)
{
    constexpr std::uint32_t RLE8 = 1;
    constexpr std::uint32_t RLE4 = 2;
    constexpr std::uint32_t BIT_FIELDS = 3;
    EXPECT_TRUE(read(headerOf({.bits = 8, .compression = RLE8}, 1024)));
    EXPECT_FALSE(read(headerOf({.bits = 4, .compression = RLE8}, 1024)));
    EXPECT_FALSE(read(headerOf({.height = -3, .bits = 8, .compression = RLE8}, 1024)));
    EXPECT_TRUE(read(headerOf({.bits = 4, .compression = RLE4}, 1024)));
    EXPECT_FALSE(read(headerOf({.bits = 8, .compression = RLE4}, 1024)));
    EXPECT_TRUE(read(headerOf({.bits = 16, .compression = BIT_FIELDS}, 12)));
    EXPECT_FALSE(read(headerOf({.bits = 24, .compression = BIT_FIELDS}, 12)));
    EXPECT_FALSE(read(headerOf({.compression = 4}, 1024)));
}

TEST(DibHeaderTest, masks_followTheShortHeaderOrArePartOfALongerOne)
{
    Array<std::byte> file = headerOf({.bits = 32, .compression = 3}, 12);
    file[40] = std::byte(0x11);
    file[48] = std::byte(0x33);
    const Optional<DibHeader> following = read(file);
    ASSERT_TRUE(following);
    EXPECT_EQ(following->masks, (std::array<std::uint32_t, 4>{0x11, 0, 0x33, 0}));
    EXPECT_EQ(following->end, 52u);
    file = headerOf({.size = 56, .bits = 32, .compression = 3});
    file[52] = std::byte(0x44);
    const Optional<DibHeader> contained = read(file);
    ASSERT_TRUE(contained);
    EXPECT_EQ(contained->masks, (std::array<std::uint32_t, 4>{0, 0, 0, 0x44}));
    EXPECT_EQ(contained->end, 56u);
}

TEST(DibHeaderTest, palette_hasAllColoursUnlessTheHeaderTellsFewer)
{
    EXPECT_EQ(read(headerOf({.bits = 8}, 1024)).value().colours, 256u);
    EXPECT_EQ(read(headerOf({.bits = 8, .colours = 3}, 12)).value().colours, 3u);
    EXPECT_FALSE(read(headerOf({.bits = 8, .colours = 3}, 11))) << "a palette that is cut off";
    EXPECT_TRUE(read(headerOf({.colours = 256}, 1024)));
    EXPECT_FALSE(read(headerOf({.colours = 257}, 1028)));
}

TEST(DibHeaderTest, unknownHeaderSizes_areRefused)
{
    for (const std::uint32_t size : {0u, 11u, 13u, 39u})
        EXPECT_FALSE(read(headerOf({.size = size}, 100))) << size;
    EXPECT_FALSE(read(Array<std::byte>()));
}

TEST(DibHeaderTest, hasRows_needsAllBytesButThePaddingOfTheLastRow)
{
    const DibHeader header = read(headerOf({})).value(); // rows of 15 bytes and a byte of padding
    EXPECT_TRUE(header.hasRows(40, 40 + 47));
    EXPECT_FALSE(header.hasRows(40, 40 + 46));
    EXPECT_FALSE(header.hasRows(40, 39));
}

TEST(DibHeaderTest, pixelsAreInPalette_looksAtThePixelsAndNotAtThePadding)
{
    DibHeader header = read(headerOf({.width = 3, .height = 1, .bits = 4, .colours = 3}, 12)).value();
    EXPECT_TRUE(header.pixelsAreInPalette(Tests::fileOf({0x01, 0x2F, 0xFF, 0xFF}), 0));
    EXPECT_FALSE(header.pixelsAreInPalette(Tests::fileOf({0x01, 0x30, 0, 0}), 0));
    EXPECT_FALSE(header.pixelsAreInPalette(Tests::fileOf({0x30, 0x10, 0, 0}), 0));
    header.colours = 16;
    EXPECT_TRUE(header.pixelsAreInPalette(Tests::fileOf({0xFF, 0xFF, 0, 0}), 0));
}
