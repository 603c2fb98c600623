// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Decoding::checkIco;
using Tests::changed;
using Tests::contentOf;
using Tests::errorOf;
using Tests::firstOf;
using Tests::pictureFile;

namespace {

// The directory has one entry, whose last four bytes tell where the picture starts.
constexpr std::size_t START_PLACE = 18;

} // namespace

TEST(IcoCheckTest, maskOfThePicture_isNeeded)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/palette.ico"));
    EXPECT_EQ(errorOf(checkIco, file), Tests::NO_ERROR_TEXT);
    // Each row of the mask ends with two bytes of padding, which the last row may lack.
    EXPECT_EQ(errorOf(checkIco, firstOf(file, file.size() - 2)), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkIco, firstOf(file, file.size() - 3)), Tests::ENDS_EARLY);
}

TEST(IcoCheckTest, pngInside_isCheckedAsAPng)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/png.ico"));
    EXPECT_EQ(errorOf(checkIco, file), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkIco, firstOf(file, file.size() - 1)), Tests::ENDS_EARLY);
}

TEST(IcoCheckTest, pictureBehindTheFile_isMissing)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/palette.ico"));
    EXPECT_EQ(errorOf(checkIco, changed(file, START_PLACE, {0, 0, 1, 0})), Tests::ENDS_EARLY);
}

TEST(IcoCheckTest, pictureInsideTheDirectory_isDamage)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/palette.ico"));
    EXPECT_EQ(errorOf(checkIco, changed(file, START_PLACE, {5, 0, 0, 0})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkIco, firstOf(file, START_PLACE)), Tests::IS_DAMAGED) << "a cut directory";
}
