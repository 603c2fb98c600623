// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <vector>

using namespace Nolvex;
using Wx::leaveFocusGroup;
using Wx::MoveFocusDirection;

namespace {

/// A native button, a group of two check boxes with a native text field between them, a panel with a text
/// area, and another native button, in this order.
struct LeaveFocusGroupTest : Tests::FrameFixture
{
    wxButton* before = new wxButton(panel, wxID_ANY, "before");
    wxPanel* group = new wxPanel(panel);
    Wx::CheckBox* first = new Wx::CheckBox(group, wxID_ANY, L"first");
    wxTextCtrl* between = new wxTextCtrl(group, wxID_ANY);
    Wx::CheckBox* second = new Wx::CheckBox(group, wxID_ANY, L"second");
    wxPanel* area = new wxPanel(panel);
    Wx::TextCtrl* log =
        new Wx::TextCtrl(area, wxID_ANY, "log", wxDefaultPosition, {100, 40}, wxTE_MULTILINE | wxTE_READONLY);
    wxButton* after = new wxButton(panel, wxID_ANY, "after");

    LeaveFocusGroupTest()
    {
        layOut(group, {first, between, second});
        layOut(area, {log});
        layOut(panel, {before, group, area, after});
        panel->Layout();
        showFrame();
    }

    static void layOut(wxWindow* parent, std::initializer_list<wxWindow*> children)
    {
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* child : children)
            sizer->Add(child);
        parent->SetSizer(sizer);
    }

    static bool hasFocus(const wxWindow* window)
    {
        return Tests::pumpUntil([window] { return wxWindow::FindFocus() == window; }, 2000);
    }

    static void focus(wxWindow* window)
    {
        window->SetFocus();
        ASSERT_TRUE(hasFocus(window));
    }
};

} // namespace

TEST_F(LeaveFocusGroupTest, forward_goesToTheNextControlThatTabDoesNotReach)
{
    focus(first);
    leaveFocusGroup(first, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(between));
    focus(second);
    leaveFocusGroup(second, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(log));
    leaveFocusGroup(log, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(after));
}

TEST_F(LeaveFocusGroupTest, backward_goesToThePreviousControlThatTabDoesNotReach)
{
    focus(second);
    leaveFocusGroup(second, MoveFocusDirection::BACKWARD);
    EXPECT_TRUE(hasFocus(between));
    focus(first);
    leaveFocusGroup(first, MoveFocusDirection::BACKWARD);
    EXPECT_TRUE(hasFocus(before));
    focus(log);
    leaveFocusGroup(log, MoveFocusDirection::BACKWARD);
    EXPECT_TRUE(hasFocus(second));
}

TEST_F(LeaveFocusGroupTest, membersOfTheGroup_arePassedOver)
{
    between->Disable();
    focus(first);
    leaveFocusGroup(first, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(log));
}

TEST_F(LeaveFocusGroupTest, lastControl_leadsToTheFirst)
{
    after->Disable();
    focus(log);
    leaveFocusGroup(log, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(before));
}

TEST_F(LeaveFocusGroupTest, hiddenAndDisabledParents_arePassedOver)
{
    between->Disable();
    area->Hide();
    focus(second);
    leaveFocusGroup(second, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(after));
}

TEST_F(LeaveFocusGroupTest, noOtherControl_leavesTheFocus)
{
    for (wxWindow* other : {static_cast<wxWindow*>(before), static_cast<wxWindow*>(between),
                            static_cast<wxWindow*>(area), static_cast<wxWindow*>(after)})
        other->Disable();
    focus(first);
    leaveFocusGroup(first, MoveFocusDirection::FORWARD);
    Tests::pumpEvents(100);
    EXPECT_EQ(wxWindow::FindFocus(), first);
    leaveFocusGroup(nullptr, MoveFocusDirection::FORWARD);
    leaveFocusGroup(frame, MoveFocusDirection::FORWARD);
}

TEST_F(LeaveFocusGroupTest, ctrlTab_leavesTheGroupOfACheckBox)
{
    focus(second);
    Tests::typeKey(WXK_TAB, wxMOD_CONTROL);
    EXPECT_TRUE(hasFocus(log));
    focus(first);
    Tests::typeKey(WXK_TAB, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_TRUE(hasFocus(before));
}

TEST_F(LeaveFocusGroupTest, ctrlTab_leavesATextArea)
{
    focus(log);
    Tests::typeKey(WXK_TAB, wxMOD_CONTROL);
    EXPECT_TRUE(hasFocus(after));
    focus(log);
    Tests::typeKey(WXK_TAB, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_TRUE(hasFocus(second));
    EXPECT_EQ(log->GetValue(), "log");
}

TEST_F(LeaveFocusGroupTest, tabOnceMore_goesRoundInTheGroup)
{
    focus(first);
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(second));
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(first));
}

TEST_F(LeaveFocusGroupTest, bordersAndSeparators_areNoTabStops)
{
    auto* border = new OskaBorder(panel);
    auto* line = new Wx::StaticLine(panel, wxHORIZONTAL);
    EXPECT_FALSE(border->AcceptsFocusFromKeyboard());
    EXPECT_FALSE(Wx::isTabStop(*border));
    EXPECT_FALSE(line->AcceptsFocus());
    EXPECT_FALSE(line->AcceptsFocusFromKeyboard());
    EXPECT_FALSE(Wx::isTabStop(*line));
    auto* framed = new wxTextCtrl(border, wxID_ANY);
    border->addChild(framed);
    EXPECT_TRUE(border->AcceptsFocusFromKeyboard()) << "the way to the text field leads through the border";
    EXPECT_FALSE(Wx::isTabStop(*border));
    EXPECT_TRUE(Wx::isTabStop(*framed));
}

TEST_F(LeaveFocusGroupTest, nativeTab_passesBordersAndSeparators)
{
    panel->GetSizer()->Insert(1, new OskaBorder(panel), 0, wxEXPAND);
    auto* line = new Wx::StaticLine(panel, wxHORIZONTAL);
    panel->GetSizer()->Add(line, 0, wxEXPAND);
    // Moving a child changes the list of the children.
    const std::vector<wxWindow*> children(panel->GetChildren().begin(), panel->GetChildren().end());
    for (wxWindow* child : children) {
        if (child != before && child != after)
            child->MoveBeforeInTabOrder(after);
    }
    group->Disable();
    area->Disable();
    focus(before);
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(after));
}
