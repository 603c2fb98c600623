// SPDX-License-Identifier: MIT
#include "apps/viewer/SettingsFile.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

using namespace Nolvex;
using Viewer::isSettingsText;

TEST(SettingsFileTest, textOfTheViewer_isOne)
{
    EXPECT_TRUE(isSettingsText(""));
    EXPECT_TRUE(isSettingsText("\r\n \t\n# x = \n; y\n[window]\r\nx=-5\r\nmaximised=0\n"
                               "[save/png]\ncolors=UINT16_RGB\n[look]\nlight-surround=1\nsurround=#010203"));
    EXPECT_TRUE(isSettingsText("folder=/a b=[c]\\\"\xc3\xbc"));
}

TEST(SettingsFileTest, otherText_isNone)
{
    for (const std::string& text : {std::string("=1"), std::string("x"), std::string("[window"),
                                    std::string("[]"), std::string("a b=1"), std::string("x=1\0", 4),
                                    std::string("[window]\n\xff=1"), std::string("!=1"), std::string(" x=1")})
        EXPECT_FALSE(isSettingsText(text)) << text;
    EXPECT_FALSE(isSettingsText("x=" + std::string(2'000'000, '1')));
}

TEST(SettingsFileTest, damagedFile_isPutAsideAndAnotherIsLeft)
{
    const Tests::TemporaryFolder folder;
    const Io::Path damaged = folder.file(L"damaged.ini", "=1");
    const Io::Path whole = folder.file(L"whole.ini", "x=1\n");
    for (const Io::Path& file : {damaged, whole, folder.file(L"missing.ini")})
        Viewer::putAsideIfDamaged(file);
    EXPECT_FALSE(std::filesystem::exists(damaged.native()));
    EXPECT_TRUE(std::filesystem::exists(folder.file(L"damaged.ini.damaged").native()));
    EXPECT_TRUE(std::filesystem::exists(whole.native()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path().native()), {}), 2);
}
