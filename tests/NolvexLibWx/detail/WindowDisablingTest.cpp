// SPDX-License-Identifier: MIT
#include "NolvexLib/GuiDisabler.h"
#include "support/FrameFixture.h"

#include <wx/textctrl.h>

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct WindowDisablingTest : Tests::FrameFixture
{
    ~WindowDisablingTest() override { Tests::destroyNow(other); }

    wxFrame* other = new wxFrame(nullptr, wxID_ANY, "other");
    wxTextCtrl* first = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(5, 5));
    wxTextCtrl* second = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(5, 60));
};

bool takesKeys(wxTextCtrl* text)
{
    text->Clear();
    wxUIActionSimulator().Char('X');
    return Tests::pumpUntil([text] { return !text->IsEmpty(); }, 1000);
}

} // namespace

TEST_F(WindowDisablingTest, guiDisabler_disablesTopLevelWindowsWhileItLives)
{
    // wxWidgets does not disable hidden windows, which take no input anyway.
    frame->Show();
    other->Show();
    Tests::pumpEvents(20);
    other->Disable();
    {
        const GuiDisabler disabler;
        EXPECT_FALSE(frame->IsEnabled());
        {
            const GuiDisabler nested;
            EXPECT_FALSE(frame->IsEnabled());
        }
        EXPECT_FALSE(frame->IsEnabled());
    }
    EXPECT_TRUE(frame->IsEnabled());
    EXPECT_FALSE(other->IsEnabled()) << "was disabled before, stays so";
}

TEST_F(WindowDisablingTest, afterwards_theFocusIsWhereItWas)
{
    showFrame();
    second->SetFocus();
    ASSERT_TRUE(takesKeys(second));
    {
        const GuiDisabler disabler;
        Tests::pumpEvents();
    }
    EXPECT_TRUE(takesKeys(second));
    EXPECT_TRUE(first->IsEmpty());
}

TEST_F(WindowDisablingTest, afterDisablersInEachOther_theFocusIsWhereItWas)
{
    showFrame();
    second->SetFocus();
    ASSERT_TRUE(takesKeys(second));
    {
        const GuiDisabler disabler;
        const GuiDisabler nested;
        Tests::pumpEvents();
    }
    EXPECT_TRUE(takesKeys(second));
}

TEST_F(WindowDisablingTest, afterwards_theSelectionInTheFieldIsTheSame)
{
    showFrame();
    second->SetFocus();
    ASSERT_TRUE(takesKeys(second));
    second->SetValue("abcdef");
    second->SetSelection(2, 4);
    {
        const GuiDisabler disabler;
        Tests::pumpEvents();
    }
    Tests::pumpEvents();
    EXPECT_EQ(second->GetStringSelection(), "cd");
}

TEST_F(WindowDisablingTest, focusDestroyedMeanwhile_isForgotten)
{
    showFrame();
    second->SetFocus();
    ASSERT_TRUE(takesKeys(second));
    {
        const GuiDisabler disabler;
        second->Destroy();
        Tests::pumpEvents();
    }
    EXPECT_TRUE(frame->IsEnabled());
    first->SetFocus();
    EXPECT_TRUE(takesKeys(first));
}
