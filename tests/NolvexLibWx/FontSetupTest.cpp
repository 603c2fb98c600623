// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FontSetup.h"

#include "support/RunScale.h"
#include "support/ScreenResolution.h"

#include <wx/settings.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using namespace Nolvex::Wx;
using Nolvex::Tests::runScale;
using Nolvex::Tests::ScreenResolution;

namespace {

wxFont systemFont()
{
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
}

/// The height of the font's characters in pixels of the screen: 72 points are an inch.
double characterHeight(const wxFont& font)
{
    return font.GetFractionalPointSize() / 72 * 96 * runScale();
}

} // namespace

TEST(FontSetupTest, textFlags_haveTheseValues)
{
    EXPECT_EQ(static_cast<unsigned>(TextFlag::BOLD), 1u);
    EXPECT_EQ(static_cast<unsigned>(TextFlag::ITALIC), 2u);
}

TEST(FontSetupTest, setDefaultFontSize_givesNinePoints)
{
    // 12 units at 96 DPI are 9 points, and remain 9 points wherever the units grow with the resolution.
    EXPECT_DOUBLE_EQ(setDefaultFontSize(systemFont(), 1.0f).GetFractionalPointSize(), 9.0);
}

TEST(FontSetupTest, setDefaultFontSize_multipliesTheHeight)
{
    EXPECT_DOUBLE_EQ(setDefaultFontSize(systemFont(), 2.0f).GetFractionalPointSize(), 18.0);
}

TEST(FontSetupTest, setDefaultFontSize_cutsToWholePixels)
{
    // At 100 % 1.24 x 12 is 14.88: 14 pixels, not 15.
    const int pixels = static_cast<int>(static_cast<float>(12 * runScale()) * 1.24f);
    EXPECT_NEAR(characterHeight(setDefaultFontSize(systemFont(), 1.24f)), pixels, 0.01);
}

TEST(FontSetupTest, setDefaultFontSize_leavesTheCallersFontAlone)
{
    const wxFont font = systemFont();
    const double before = font.GetFractionalPointSize();
    setDefaultFontSize(font, 3.0f);
    EXPECT_EQ(font.GetFractionalPointSize(), before);
}

TEST(FontSetupTest, setDefaultFontSize_keepsWeightAndStyleOfTheFont)
{
    const wxFont font = setDefaultFontSize(systemFont().Bold().Italic(), 1.0f);
    EXPECT_EQ(font.GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(font.GetStyle(), wxFONTSTYLE_ITALIC);
}

TEST(FontSetupTest, text_growsWithTheResolution)
{
    const ScreenResolution resolution(144.0);
    if (!resolution.isSet())
        GTEST_SKIP()
            << "the system's resolution is fixed while a program runs; the runs at other DPI cover this";
    // 12 design units are 18 pixels here, which are 9 points again.
    EXPECT_DOUBLE_EQ(setDefaultFontSize(systemFont(), 1.0f).GetFractionalPointSize(), 9.0);
    EXPECT_DOUBLE_EQ(setupStaticTextFont(systemFont(), {}).GetFractionalPointSize(), 9.0);
}

TEST(FontSetupTest, setupStaticTextFont_dropsWeightAndStyleOfTheFont)
{
    wxFont font = systemFont();
    font.MakeBold().MakeItalic().MakeUnderlined().MakeStrikethrough();
    const wxFont plain = setupStaticTextFont(font, {});
    EXPECT_EQ(plain.GetWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_EQ(plain.GetStyle(), wxFONTSTYLE_NORMAL);
    EXPECT_FALSE(plain.GetUnderlined());
    EXPECT_FALSE(plain.GetStrikethrough());
    EXPECT_EQ(plain.GetFaceName(), font.GetFaceName());
    EXPECT_DOUBLE_EQ(plain.GetFractionalPointSize(), 9.0);
}

TEST(FontSetupTest, setupStaticTextFont_appliesTheFlags)
{
    const wxFont bold = setupStaticTextFont(systemFont(), TextFlag::BOLD);
    EXPECT_EQ(bold.GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(bold.GetStyle(), wxFONTSTYLE_NORMAL);
    const wxFont italic = setupStaticTextFont(systemFont(), TextFlag::ITALIC);
    EXPECT_EQ(italic.GetWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_EQ(italic.GetStyle(), wxFONTSTYLE_ITALIC);
    const wxFont both = setupStaticTextFont(systemFont(), {TextFlag::BOLD, TextFlag::ITALIC});
    EXPECT_EQ(both.GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(both.GetStyle(), wxFONTSTYLE_ITALIC);
    EXPECT_DOUBLE_EQ(both.GetFractionalPointSize(), 9.0);
}
