// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Decoding::checkTga;
using Tests::changed;
using Tests::contentOf;
using Tests::errorOf;
using Tests::firstOf;
using Tests::pictureFile;

namespace {

constexpr std::size_t PALETTE_START_PLACE = 3;
constexpr std::size_t ORIGIN_PLACE = 8;
constexpr std::size_t WIDTH_PLACE = 12;
constexpr std::size_t BITS_PLACE = 16;

} // namespace

TEST(TgaCheckTest, lastPixel_isNeeded)
{
    Array<std::byte> file = Tests::fileOf({0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 0, 2, 0, 24, 0});
    file.resize(18 + 3 * 2 * 3);
    EXPECT_EQ(errorOf(checkTga, file), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkTga, firstOf(file, file.size() - 1)), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkTga, firstOf(file, 17)), Tests::IS_DAMAGED);
}

TEST(TgaCheckTest, packets_endWithTheLastPixel)
{
    const Array<std::byte> header = Tests::fileOf({0, 0, 11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0, 1, 0, 8, 0});
    EXPECT_EQ(errorOf(checkTga, Tests::joined(header, Tests::fileOf({0x83, 1}))), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkTga, Tests::joined(header, Tests::fileOf({0x84, 1}))), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkTga, Tests::joined(header, Tests::fileOf({3, 1, 2, 3}))), Tests::ENDS_EARLY);
}

TEST(TgaCheckTest, kindsThatWxWidgetsDecodesUnsafely_areDamage)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/palette.tga"));
    EXPECT_EQ(errorOf(checkTga, file), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkTga, changed(file, PALETTE_START_PLACE, {1})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkTga, changed(file, BITS_PLACE, {16})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkTga, changed(file, WIDTH_PLACE, {0, 0})), Tests::IS_DAMAGED);
}

TEST(TgaCheckTest, sizeBeyondThatOfAnImage_isTooLarge)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.tga"));
    EXPECT_EQ(errorOf(checkTga, changed(file, WIDTH_PLACE, {0xFF, 0xFF, 0xFF, 0xFF})), Tests::IS_TOO_LARGE);
}

TEST(TgaCheckTest, origin_isTakenOut)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/origin.tga"));
    const Decoding::CheckedImage image = checkTga(file);
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(changed(file, ORIGIN_PLACE, {0, 0, 0, 0}),
              Array<std::byte>(image->bytes().begin(), image->bytes().end()));
}

TEST(TgaCheckTest, leftwardRows_areTold)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/leftwards.tga"));
    const Decoding::CheckedImage image = checkTga(file);
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->orientation, 2);
}
