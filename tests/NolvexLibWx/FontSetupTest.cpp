// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FontSetup.h"

#include "NolvexLibWx/DpiScaling.h"

#include <wx/settings.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using namespace Nolvex::Wx;

namespace {

wxFont systemFont()
{
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
}

} // namespace

TEST(FontSetupTest, textFlags_haveTheseValues)
{
    EXPECT_EQ(static_cast<unsigned>(TextFlag::BOLD), 1u);
    EXPECT_EQ(static_cast<unsigned>(TextFlag::ITALIC), 2u);
}

TEST(FontSetupTest, setDefaultFontSize_setsThePixelHeight)
{
    EXPECT_EQ(setDefaultFontSize(systemFont(), 1.0f).GetPixelSize().y, scaleByDpi(12));
    EXPECT_EQ(setDefaultFontSize(systemFont(), 2.0f).GetPixelSize().y, 2 * scaleByDpi(12));
}

TEST(FontSetupTest, setDefaultFontSize_cutsToWholePixels)
{
    // 1.24 x 12 is 14.88: 14, not 15. Compared as fonts, since the toolkit keeps points and rounds what it
    // reports.
    wxFont expected = systemFont();
    expected.SetPixelSize(wxSize(0, static_cast<int>(static_cast<float>(scaleByDpi(12)) * 1.24f)));
    EXPECT_EQ(setDefaultFontSize(systemFont(), 1.24f), expected);
}

TEST(FontSetupTest, setDefaultFontSize_leavesTheCallersFontAlone)
{
    const wxFont font = systemFont();
    const wxSize before = font.GetPixelSize();
    setDefaultFontSize(font, 3.0f);
    EXPECT_EQ(font.GetPixelSize(), before);
}

TEST(FontSetupTest, setupStaticTextFont_dropsWeightAndStyleOfTheFont)
{
    wxFont font = systemFont();
    font.MakeBold().MakeItalic().MakeUnderlined();
    const wxFont plain = setupStaticTextFont(font, {});
    EXPECT_EQ(plain.GetWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_EQ(plain.GetStyle(), wxFONTSTYLE_NORMAL);
    EXPECT_FALSE(plain.GetUnderlined());
    EXPECT_EQ(plain.GetFaceName(), font.GetFaceName());
    EXPECT_EQ(plain.GetPixelSize().y, scaleByDpi(12));
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
    EXPECT_EQ(both.GetPixelSize().y, scaleByDpi(12));
}
