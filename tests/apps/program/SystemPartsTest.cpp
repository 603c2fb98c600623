// SPDX-License-Identifier: MIT
#include "apps/program/SystemParts.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/DesktopTheme.h"
#include "support/FrameFixture.h"

#include <wx/menu.h>
#include <wx/settings.h>

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

Wx::GuiSkin lightSkin()
{
    Wx::GuiSkin skin = Wx::GuiSkin::DEFAULT();
    skin.text = {20, 20, 20};
    skin.background = {220, 220, 220};
    return skin;
}

struct SystemPartsTest : Tests::FrameFixture
{
    // No program has asked for anything yet, so that this is the wish of the user.
    bool darkPreferred = Tests::DesktopTheme::isDarkPreferred();

    SystemPartsTest()
    {
        auto* bar = new wxMenuBar;
        bar->Append(new wxMenu, "M");
        frame->SetMenuBar(bar);
    }

    ~SystemPartsTest() override { Program::matchSystemParts(lightSkin()); }

    void SetUp() override
    {
        if (!Tests::DesktopTheme::canBeSet())
            GTEST_SKIP() << "The program cannot change the theme of the desktop.";
        showFrame();
    }

    /// The green of the menu bar where it has no title, from 0 to 1.
    float greenOfMenuBar() const
    {
        constexpr int BESIDE_TITLE = 60;
        constexpr int ABOVE_CLIENT_AREA = 6;
        const wxPoint client = frame->ClientToScreen(wxPoint(BESIDE_TITLE, 0));
        const wxRect place(client.x, client.y - ABOVE_CLIENT_AREA, 1, 1);
        const BitmapImpl<Rgb> pixel = Wx::getScreenRegionColors(Wx::toBucket(place));
        return pixel.isEmpty() ? -1.0f : pixel.row(0)->g;
    }

    bool becomesDark() const
    {
        return Tests::pumpUntil([this] { return greenOfMenuBar() >= 0.0f && greenOfMenuBar() < 0.3f; });
    }

    /// True if the menu bar becomes light or, for a user who prefers dark programs, dark.
    bool becomesAsPreferred() const
    {
        return darkPreferred ? becomesDark() : Tests::pumpUntil([this] { return greenOfMenuBar() > 0.7f; });
    }

    bool isWindowColourDark() const
    {
        return wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW).GetLuminance() < 0.5;
    }
};

} // namespace

TEST_F(SystemPartsTest, menuBar_isDarkWithADarkSkinAndAsPreferredAgainWithALightSkin)
{
    const Tests::DesktopTheme theme("Adwaita");
    EXPECT_TRUE(becomesAsPreferred());
    Program::matchSystemParts(Wx::GuiSkin::DEFAULT());
    EXPECT_TRUE(becomesDark());
    Program::matchSystemParts(lightSkin());
    EXPECT_TRUE(becomesAsPreferred());
}

TEST_F(SystemPartsTest, coloursThatWxWidgetsTells_followTheTheme)
{
    const Tests::DesktopTheme theme("Adwaita");
    EXPECT_EQ(isWindowColourDark(), darkPreferred);
    Program::matchSystemParts(Wx::GuiSkin::DEFAULT());
    EXPECT_TRUE(isWindowColourDark());
    Program::matchSystemParts(lightSkin());
    EXPECT_EQ(isWindowColourDark(), darkPreferred);
}

// GTK has a dark variant of Adwaita only, but window managers read the request too.
TEST_F(SystemPartsTest, userWithAThemeOfHighContrast_keepsTheParts)
{
    {
        const Tests::DesktopTheme theme("HighContrast");
        Program::matchSystemParts(Wx::GuiSkin::DEFAULT());
    }
    const Tests::DesktopTheme theme("Adwaita");
    Tests::pumpEvents(100);
    EXPECT_TRUE(becomesAsPreferred());
    EXPECT_EQ(isWindowColourDark(), darkPreferred);
}
