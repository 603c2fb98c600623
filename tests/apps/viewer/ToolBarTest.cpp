// SPDX-License-Identifier: MIT
// Tests the commands of the viewer's buttons, options and menu, and that their states agree.
#include "apps/viewer/ToolBar.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/ViewOptions.h"
#include "apps/viewer/ViewerFrame.h"
#include "apps/viewer/view/ImageView.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/ModalDialogs.h"
#include "support/ViewerFixture.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::findIn;
using Viewer::Command;
using Viewer::ToolBar;
using Viewer::ViewerFrame;
using Viewer::ViewOptions;

namespace {

template<class Wanted>
Wanted* childOf(wxWindow* parent, int id)
{
    for (wxWindow* child : parent->GetChildren()) {
        if (child->GetId() == id)
            return dynamic_cast<Wanted*>(child);
    }
    return nullptr;
}

void clickMiddle(const wxWindow* window)
{
    Tests::clickAt(window, wxPoint(window->GetSize().x / 2, window->GetSize().y / 2));
}

struct ViewerToolBarTest : Tests::ViewerFixture
{
    ToolBar* toolBar = nullptr;
    ViewOptions* options = nullptr;
    Wx::CollapsiblePanel* panel = nullptr;

    void SetUp() override
    {
        show(Tests::coordinates(200, 100));
        toolBar = findIn<ToolBar>(frame);
        options = findIn<ViewOptions>(frame);
        panel = findIn<Wx::CollapsiblePanel>(frame);
    }

    Wx::Button* button(Command command) const { return childOf<Wx::Button>(toolBar, command); }

    Wx::CheckBox* box(Command command) const { return childOf<Wx::CheckBox>(options, command); }

    bool isChecked(Command command) const { return frame->GetMenuBar()->IsChecked(command); }
};

using ToolBarTest = Tests::FrameFixture;

} // namespace

TEST_F(ViewerToolBarTest, logButton_showsAndHidesTheLog)
{
    clickMiddle(button(Command::SHOW_LOG));
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(button(Command::SHOW_LOG)->isToggled());
    EXPECT_TRUE(isChecked(Command::SHOW_LOG));
    EXPECT_TRUE(box(Command::SHOW_LOG)->GetValue());
    clickMiddle(button(Command::SHOW_LOG));
    EXPECT_FALSE(frame->isLogShown());
    EXPECT_FALSE(button(Command::SHOW_LOG)->isToggled());
    EXPECT_FALSE(isChecked(Command::SHOW_LOG));
    EXPECT_FALSE(box(Command::SHOW_LOG)->GetValue());
}

TEST_F(ViewerToolBarTest, about_tellsWhatThisIs)
{
    wxString message;
    const Tests::DialogRobot robot(
        {{"the message is shown", [] { return Tests::activeModal<Wx::MessageDialog>() != nullptr; },
          [&] {
              message = findIn<Wx::StaticText>(Tests::activeModal<Wx::MessageDialog>())->GetLabel();
              wxUIActionSimulator().Char(WXK_RETURN);
          }}});
    clickMiddle(childOf<Wx::TextButton>(toolBar, Command::ABOUT));
    EXPECT_TRUE(Tests::pumpUntil([&] { return !message.empty(); }));
    EXPECT_TRUE(message.Contains(L"nolvex-viewer ")) << message;
}

TEST_F(ViewerToolBarTest, options_startFoldedAwayAndUnfoldOnAClick)
{
    EXPECT_TRUE(panel->isCollapsed());
    Tests::clickAt(panel, wxPoint(4, 8));
    EXPECT_FALSE(panel->isCollapsed());
    EXPECT_TRUE(options->IsShownOnScreen());
}

TEST_F(ViewerToolBarTest, optionsByTheMouse_doWhatTheySay)
{
    panel->setCollapsed(false);
    Tests::pumpEvents(50);
    clickMiddle(box(Command::LIGHT_SURROUND));
    EXPECT_TRUE(frame->hasLightSurround());
    EXPECT_TRUE(isChecked(Command::LIGHT_SURROUND));
    EXPECT_NE(findIn<Viewer::ImageView>(frame)->GetBackgroundColour(),
              Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground));
    clickMiddle(box(Command::LIGHT_SURROUND));
    EXPECT_FALSE(frame->hasLightSurround());
    EXPECT_EQ(findIn<Viewer::ImageView>(frame)->GetBackgroundColour(),
              Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground));

    EXPECT_TRUE(box(Command::SHOW_TOOLTIPS)->GetValue());
    clickMiddle(box(Command::SHOW_TOOLTIPS));
    EXPECT_FALSE(frame->hasTooltips());
    EXPECT_FALSE(isChecked(Command::SHOW_TOOLTIPS));
    EXPECT_TRUE(button(Command::OPEN)->tooltip()->lines().empty());
    clickMiddle(box(Command::SHOW_TOOLTIPS));
    EXPECT_FALSE(button(Command::OPEN)->tooltip()->lines().empty());

    clickMiddle(box(Command::SHOW_LOG));
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(button(Command::SHOW_LOG)->isToggled());
}

TEST_F(ViewerToolBarTest, everythingInTheRow_hasATooltip)
{
    for (const Command command :
         {Command::OPEN, Command::SAVE_AS, Command::COPY, Command::CAPTURE_SCREEN, Command::SHOW_LOG}) {
        ASSERT_NE(button(command)->tooltip(), nullptr);
        EXPECT_FALSE(button(command)->tooltip()->lines().empty());
    }
    EXPECT_FALSE(childOf<Wx::TextButton>(toolBar, Command::ABOUT)->tooltip()->lines().empty());
}

TEST_F(ToolBarTest, eachButton_tellsItsCommand)
{
    Array<int> commands;
    auto* toolBar = new ToolBar(panel, [&](Command command) { commands.push_back(command); });
    Array<int> expected;
    for (wxWindow* child : toolBar->GetChildren()) {
        if (auto* button = dynamic_cast<Wx::Button*>(child)) {
            button->doClick({});
            expected.push_back(button->GetId());
        }
    }
    EXPECT_EQ(commands, expected);
    EXPECT_EQ(commands, Array<int>({Command::OPEN, Command::SAVE_AS, Command::COPY, Command::CAPTURE_SCREEN,
                                    Command::SHOW_PICTURES, Command::SHOW_INFORMATION, Command::SHOW_LOG}));
}
