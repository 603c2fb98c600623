// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/GuiSkin.h"

#include "support/DefaultSkinGuard.h"
#include "support/Screen.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace Nolvex;
using namespace Nolvex::Wx;

namespace {

// A static constructor reads the default skin, whose constant data exists before any code runs.
const RgbBytes g_linkDuringStaticConstruction = GuiSkin::DEFAULT().link;

} // namespace

TEST(GuiSkinTest, defaultSkin_hasTheNineColoursInOrder)
{
    const RgbBytes expected[9] = {{200, 200, 200}, {110, 110, 110}, {68, 68, 68},   {37, 37, 37}, {0, 0, 0},
                                  {95, 138, 193},  {0, 73, 112},    {81, 167, 241}, {0, 114, 188}};
    const GuiSkin& skin = GuiSkin::DEFAULT();
    static_assert(sizeof skin == sizeof expected);
    EXPECT_EQ(std::memcmp(&skin, expected, sizeof expected), 0);
    EXPECT_EQ(skin.text, expected[0]);
    EXPECT_EQ(skin.disabledText, expected[1]);
    EXPECT_EQ(skin.background, expected[2]);
    EXPECT_EQ(skin.darkBackground, expected[3]);
    EXPECT_EQ(skin.accentText, expected[4]);
    EXPECT_EQ(skin.accent, expected[5]);
    EXPECT_EQ(skin.pressedBackground, expected[6]);
    EXPECT_EQ(skin.link, expected[7]);
    EXPECT_EQ(skin.highlight, expected[8]);
}

TEST(GuiSkinTest, defaultSkin_isThereBeforeAnyConstructorRuns)
{
    EXPECT_EQ(g_linkDuringStaticConstruction, (RgbBytes{81, 167, 241}));
}

TEST(GuiSkinTest, defaultSkin_isOneMutableInstance)
{
    const Tests::DefaultSkinGuard guard;
    GuiSkin::DEFAULT().accent = {9, 8, 7};
    EXPECT_EQ(GuiSkin::DEFAULT().accent, (RgbBytes{9, 8, 7}));
    EXPECT_EQ(&GuiSkin::DEFAULT(), &GuiSkin::DEFAULT());
}
