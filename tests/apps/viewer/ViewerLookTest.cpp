// SPDX-License-Identifier: MIT
// Closes the viewer's window and opens the next one with the same settings.
#include "apps/viewer/ViewerLook.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/inspection/InformationPanel.h"
#include "apps/viewer/view/DisplayOptions.h"
#include "support/ViewerFixture.h"

#include <wx/fileconf.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/sstream.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Nolvex;
using Viewer::Preferences;
using Viewer::Settings;

namespace {

std::shared_ptr<wxConfigBase> emptyConfig()
{
    wxStringInputStream nothing{wxString()};
    return std::make_shared<wxFileConfig>(nothing);
}

struct ViewerLookTest : Tests::ViewerFixture
{
    std::shared_ptr<wxConfigBase> config = emptyConfig();

    void open()
    {
        frame = new Viewer::ViewerFrame(nullptr, {}, Wx::requestScreenRegion, config);
        view = Tests::findIn<Viewer::ImageView>(frame);
        log = Tests::findIn<Wx::TextCtrl>(frame);
        frame->Show();
        ASSERT_TRUE(Tests::pumpUntil([this] { return frame->wasPainted(); }));
    }

    void close()
    {
        const wxWeakRef<wxFrame> weak(frame);
        frame->Close();
        frame = nullptr;
        ASSERT_TRUE(Tests::pumpUntil([&] { return !weak; }));
    }

    Preferences stored() const { return Settings(config).preferences(); }

    bool isChecked(int id) const { return frame->GetMenuBar()->IsChecked(id); }

    Viewer::DisplayOptions* display() const { return Tests::findIn<Viewer::DisplayOptions>(frame); }

    bool isListShown() const { return isChecked(Viewer::SHOW_PICTURES); }
};

} // namespace

TEST_F(ViewerLookTest, untouchedWindow_remembersTheUsualPreferences)
{
    open();
    close();
    EXPECT_EQ(stored(), Preferences());
}

TEST_F(ViewerLookTest, tasteOfTheUser_isRemembered)
{
    open();
    command(Viewer::SHOW_TOOLTIPS);
    command(Viewer::LIGHT_SURROUND);
    command(Viewer::SHOW_INFORMATION);
    const int width = frame->GetClientSize().x;
    Tests::findIn<Wx::CheckBox>(display())->setValue(true, true);
    close();
    open();
    EXPECT_FALSE(frame->hasTooltips());
    EXPECT_FALSE(isChecked(Viewer::SHOW_TOOLTIPS));
    EXPECT_TRUE(frame->hasLightSurround());
    EXPECT_TRUE(Tests::findIn<Viewer::InformationPanel>(frame)->IsShown());
    EXPECT_TRUE(isChecked(Viewer::SHOW_INFORMATION));
    EXPECT_TRUE(display()->settings().checkerboard);
    EXPECT_TRUE(Tests::findIn<Wx::CheckBox>(display())->GetValue());
    EXPECT_TRUE(view->display().checkerboard);
    EXPECT_EQ(frame->GetClientSize().x, width) << "the panel beside the picture takes the same room";
}

TEST_F(ViewerLookTest, chosenSurroundAndEncoding_areRemembered)
{
    Preferences preferences;
    preferences.surround = RgbBytes{10, 120, 30};
    preferences.encoding = Viewer::Encoding::SRGB;
    Settings(config).setPreferences(preferences);
    open();
    EXPECT_EQ(view->display().encoding, Viewer::Encoding::SRGB);
    EXPECT_EQ(Wx::toRgbBytes(view->GetBackgroundColour()), (RgbBytes{10, 120, 30}));
    close();
    EXPECT_EQ(stored(), preferences);
}

TEST_F(ViewerLookTest, whatIsAMatterOfThePicture_isNotRemembered)
{
    open();
    command(Viewer::PIXEL_PROBE);
    command(Viewer::SHOW_LOG);
    Tests::findIn<Wx::ComboBox>(display())->selectId(static_cast<int>(Viewer::Channel::RED), true);
    ASSERT_EQ(view->display().channel, Viewer::Channel::RED);
    close();
    open();
    EXPECT_FALSE(frame->hasPixelProbe());
    EXPECT_FALSE(frame->isLogShown());
    EXPECT_EQ(view->display(), Viewer::DisplaySettings());
}

TEST_F(ViewerLookTest, listThatTheUserHasHidden_staysHidden)
{
    open();
    frame->workspace().addFiles({Io::Path(L"a"), Io::Path(L"b")});
    ASSERT_TRUE(isListShown());
    command(Viewer::SHOW_PICTURES);
    close();
    open();
    frame->workspace().addFiles({Io::Path(L"a"), Io::Path(L"b")});
    EXPECT_FALSE(isListShown());
    command(Viewer::SHOW_PICTURES);
    close();
    open();
    EXPECT_FALSE(isListShown()) << "there is nothing to choose from";
    frame->workspace().addFiles({Io::Path(L"a"), Io::Path(L"b")});
    EXPECT_TRUE(isListShown());
}

TEST_F(ViewerLookTest, windowWithoutSettings_changesNone)
{
    open();
    close();
    show(Tests::coordinates(60, 40));
    command(Viewer::SHOW_TOOLTIPS);
    close();
    EXPECT_EQ(stored(), Preferences());
}
