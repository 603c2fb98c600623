// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WxImageReader.h"

#include "support/PictureFiles.h"

#include <gtest/gtest.h>

#include <string>

using namespace Nolvex;
using namespace std::string_literals;

namespace {

/// Returns a file with so many frames of one pixel, each after a block with its duration.
Array<std::byte> gifOf(int frames, bool haveTables)
{
    std::string file = "GIF89a\1\0\1\0\x80\0\0\0\0\0\xff\xff\xff"s;
    for (int i = 0; i < frames; ++i) {
        file += "\x21\xf9\4\0\5\0\0\0"s;
        file += haveTables ? "\x2c\0\0\0\0\1\0\1\0\x80\0\0\0\xff\xff\xff"s : "\x2c\0\0\0\0\1\0\1\0\0"s;
        file += "\2\2\x4c\1\0"s;
    }
    file += ";";
    const auto* first = reinterpret_cast<const std::byte*>(file.data());
    return {first, first + file.size()};
}

Expected<Viewer::ReadImage, String> read(const Array<std::byte>& file)
{
    return Viewer::WxImageReader().read(file, 0, {});
}

} // namespace

TEST(WxImageReaderTest, furtherFramesOfGif_areTold)
{
    for (const bool haveTables : {false, true}) {
        const auto one = read(gifOf(1, haveTables));
        ASSERT_TRUE(one.hasValue()) << one.error().toUtf8();
        EXPECT_TRUE(one->omissions.empty());
        const auto three = read(gifOf(3, haveTables));
        ASSERT_TRUE(three.hasValue()) << three.error().toUtf8();
        EXPECT_EQ(three->omissions, (Array<String>{L"It has 3 frames, of which the first is shown."}));
    }
    const auto still = read(Tests::contentOf(Tests::pictureFile("pattern.jpg")));
    ASSERT_TRUE(still.hasValue());
    EXPECT_TRUE(still->omissions.empty());
}
