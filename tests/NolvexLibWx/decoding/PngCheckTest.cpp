// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Decoding::checkPng;
using Tests::changed;
using Tests::contentOf;
using Tests::errorOf;
using Tests::firstOf;
using Tests::pictureFile;

namespace {

constexpr std::size_t WIDTH_PLACE = 16;

} // namespace

TEST(PngCheckTest, endChunk_isNeededToItsLastByte)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.png"));
    EXPECT_EQ(errorOf(checkPng, file), Tests::NO_ERROR_TEXT);
    EXPECT_EQ(errorOf(checkPng, firstOf(file, file.size() - 1)), Tests::ENDS_EARLY);
    EXPECT_EQ(errorOf(checkPng, firstOf(file, 8)), Tests::ENDS_EARLY);
}

TEST(PngCheckTest, sizesWithoutSense_areRefused)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.png"));
    EXPECT_EQ(errorOf(checkPng, changed(file, WIDTH_PLACE, {0, 0, 0, 0})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(checkPng, changed(file, WIDTH_PLACE, {0, 0, 0x60, 0, 0, 0, 0x60, 0})),
              Tests::ENDS_EARLY)
        << "too many pixels for such a small file";
    EXPECT_EQ(errorOf(checkPng, changed(file, WIDTH_PLACE, {0, 1, 0, 0, 0, 1, 0, 0})), Tests::IS_TOO_LARGE);
}
