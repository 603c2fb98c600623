// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Decoding::checkBmp;
using Tests::changed;
using Tests::contentOf;
using Tests::errorOf;
using Tests::firstOf;
using Tests::pictureFile;

namespace {

constexpr std::size_t WIDTH_PLACE = 18;
constexpr std::size_t HEIGHT_PLACE = 22;
constexpr std::size_t BITS_PLACE = 28;

} // namespace

TEST(BmpCheckTest, lastByteOfTheLastPixel_isNeeded)
{
    // 17 pixels of 24 bits are followed by a byte of padding, which may be missing.
    Array<std::byte> file = Tests::fileOf(
        {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 17, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0});
    file.resize(54 + 52);
    EXPECT_EQ(errorOf(checkBmp, file), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkBmp, firstOf(file, 54 + 51)), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkBmp, firstOf(file, 54 + 50)), Tests::ENDS_EARLY);
}

TEST(BmpCheckTest, sidesBeyondThoseOfWxWidgets_areTooLarge)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.bmp"));
    EXPECT_EQ(errorOf(checkBmp, changed(file, WIDTH_PLACE, {0xFF, 0x7F, 0, 0})), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkBmp, changed(file, WIDTH_PLACE, {0, 0x80, 0, 0})), Tests::IS_TOO_LARGE);
    EXPECT_EQ(errorOf(checkBmp, changed(file, HEIGHT_PLACE, {0, 0x80, 0, 0})), Tests::IS_TOO_LARGE);
}

TEST(BmpCheckTest, headerWithoutSense_isDamage)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.bmp"));
    EXPECT_EQ(errorOf(checkBmp, changed(file, WIDTH_PLACE, {0, 0, 0, 0})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkBmp, changed(file, HEIGHT_PLACE, {0, 0, 0, 0x80})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkBmp, changed(file, BITS_PLACE, {2})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkBmp, firstOf(file, 20)), Tests::IS_DAMAGED);
}

TEST(BmpCheckTest, formsThatWxWidgetsReadsWrong_areRewritten)
{
    for (const char* name : {"fields565.bmp", "rgb555.bmp", "runs4.bmp", "runs8.bmp"}) {
        const Array<std::byte> file = contentOf(pictureFile(std::string("formats/") + name));
        const Decoding::CheckedImage image = checkBmp(file);
        ASSERT_TRUE(image.hasValue()) << name;
        EXPECT_EQ(image->bytes()[BITS_PLACE], std::byte(24)) << name;
    }
    const Array<std::byte> plain = contentOf(pictureFile("pattern.bmp"));
    const Decoding::CheckedImage image = checkBmp(plain);
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->bytes().data(), plain.data()) << "the others are not copied";
}
