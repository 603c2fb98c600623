// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Nolvex;
using Decoding::checkJpeg;
using Tests::errorOf;

namespace {

/// Returns a file of a frame header of this size, some scans without data, and perhaps the end marker.
Array<std::byte> jpegOf(int width, int height, int scans, bool hasEnd)
{
    Array<std::byte> file = Tests::fileOf(
        {0xFF, 0xD8, 0xFF, 0xC0, 0, 8, 8, height >> 8, height & 0xFF, width >> 8, width & 0xFF, 1});
    for (int i = 0; i < scans; ++i)
        file = Tests::joined(std::move(file), Tests::fileOf({0xFF, 0xDA, 0, 2, 0x12, 0xFF, 0, 0xFF, 0xD3}));
    return hasEnd ? Tests::joined(std::move(file), Tests::fileOf({0xFF, 0xD9})) : file;
}

} // namespace

TEST(JpegCheckTest, fileWithoutItsEnd_isAcceptedButNotWhole)
{
    const Decoding::CheckedImage whole = checkJpeg(jpegOf(4, 4, 1, true));
    ASSERT_TRUE(whole.hasValue());
    EXPECT_TRUE(whole->isWhole);
    const Decoding::CheckedImage cut = checkJpeg(jpegOf(4, 4, 1, false));
    ASSERT_TRUE(cut.hasValue());
    EXPECT_FALSE(cut->isWhole);
}

TEST(JpegCheckTest, fileWithoutAScan_isShortOrDamaged)
{
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(4, 4, 0, false)), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(4, 4, 0, true)), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(0, 4, 1, true)), Tests::IS_DAMAGED);
}

TEST(JpegCheckTest, moreThanFiveHundredScans_areDamage)
{
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(4, 4, 500, true)), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(4, 4, 501, true)), Tests::IS_DAMAGED);
}

TEST(JpegCheckTest, sizesThatTheFileCannotHold_areRefused)
{
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(8192, 8192, 1, true)), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(16384, 16384, 1, true)), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkJpeg, jpegOf(0xFFFF, 0xFFFF, 1, true)), Tests::IS_TOO_LARGE);
}
