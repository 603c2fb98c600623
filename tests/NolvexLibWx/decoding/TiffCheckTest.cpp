// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Nolvex;
using Decoding::checkTiff;
using Tests::errorOf;
using Tests::firstOf;

namespace {

struct Entry
{
    int tag;
    int value;
};

constexpr int WIDTH = 256;
constexpr int HEIGHT = 257;
constexpr int BITS = 258;
constexpr int COMPRESSION = 259;
constexpr int PHOTOMETRIC = 262;
constexpr int STRIP_START = 273;
constexpr int ORIENTATION = 274;
constexpr int SAMPLES = 277;
constexpr int STRIP_SIZE = 279;

constexpr std::size_t PIXEL_PLACE = 8;
constexpr std::size_t PIXEL_BYTES = 12;

/// Returns a grey picture of 4 x 3 pixels in a strip, with entries of 32 bits that may be replaced.
Array<std::byte> tiffOf(std::initializer_list<Entry> replaced)
{
    Array<Entry> entries{{WIDTH, 4},       {HEIGHT, 3},      {BITS, 8},
                         {COMPRESSION, 1}, {PHOTOMETRIC, 1}, {STRIP_START, PIXEL_PLACE},
                         {ORIENTATION, 1}, {SAMPLES, 1},     {STRIP_SIZE, PIXEL_BYTES}};
    for (const Entry& entry : replaced)
        std::ranges::find(entries, entry.tag, &Entry::tag)->value = entry.value;
    Array<std::byte> file = Tests::fileOf({'I', 'I', 42, 0, PIXEL_PLACE + PIXEL_BYTES, 0, 0, 0});
    file.resize(PIXEL_PLACE + PIXEL_BYTES);
    file = Tests::joined(std::move(file), Tests::fileOf({static_cast<int>(entries.size()), 0}));
    for (const auto& [tag, value] : entries)
        file = Tests::joined(std::move(file),
                             Tests::fileOf({tag & 0xFF, tag >> 8, 4, 0, 1, 0, 0, 0, value & 0xFF,
                                            value >> 8 & 0xFF, value >> 16 & 0xFF, value >> 24 & 0xFF}));
    return file;
}

} // namespace

TEST(TiffCheckTest, stripOfAllPixels_isNeeded)
{
    EXPECT_EQ(errorOf(checkTiff, tiffOf({})), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{STRIP_SIZE, 11}})), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{STRIP_START, 1000}})), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{HEIGHT, 4}})), Tests::ENDS_EARLY);
}

TEST(TiffCheckTest, cutDirectory_isShort)
{
    const Array<std::byte> file = tiffOf({});
    EXPECT_EQ(errorOf(checkTiff, firstOf(file, file.size() - 1)), Tests::ENDS_EARLY);
}

TEST(TiffCheckTest, numbersWithoutSense_areDamage)
{
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{WIDTH, 0}})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{BITS, 65}})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{SAMPLES, 0x10000}})), Tests::IS_DAMAGED);
}

TEST(TiffCheckTest, sizeBeyondThatOfAnImage_isTooLarge)
{
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{WIDTH, 0x10000}, {HEIGHT, 0x10000}})), Tests::IS_TOO_LARGE);
}

TEST(TiffCheckTest, compressedPixels_mustBePlausible)
{
    constexpr int LZW = 5;
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{COMPRESSION, LZW}, {WIDTH, 8192}, {HEIGHT, 8192}})),
              Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{COMPRESSION, LZW}, {WIDTH, 16384}, {HEIGHT, 16384}})),
              Tests::ENDS_EARLY);
}

TEST(TiffCheckTest, orientation_isToldAndTakenOut)
{
    const Array<std::byte> file = tiffOf({{ORIENTATION, 6}});
    const Decoding::CheckedImage image = checkTiff(file);
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->orientation, 6);
    EXPECT_EQ(tiffOf({}), Array<std::byte>(image->bytes().begin(), image->bytes().end()));
    const Array<std::byte> unknown = tiffOf({{ORIENTATION, 9}});
    const Decoding::CheckedImage upright = checkTiff(unknown);
    ASSERT_TRUE(upright.hasValue());
    EXPECT_EQ(upright->orientation, 1);
}

TEST(TiffCheckTest, paletteWithAlpha_isRefusedWithItsReason)
{
    EXPECT_EQ(errorOf(checkTiff, tiffOf({{PHOTOMETRIC, 3}, {SAMPLES, 2}, {HEIGHT, 1}})),
              L"it has a palette and alpha, which is not supported");
}
