// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownButton.h"

#include "DropdownButtonFixture.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/DpiScaling.h"
#include "support/Screen.h"

#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Tests::HELD;
using Tests::PUSH;
using Tests::SWAP;
using Tests::TOGGLE;
using Wx::DropdownButton;
using Wx::scaleByDpi;

namespace {

static_assert(std::is_base_of_v<Wx::Button, DropdownButton>);

using DropdownButtonTest = Tests::DropdownButtonFixture;
using DropdownButtonSizeTest = DropdownButtonTest;

} // namespace

TEST_F(DropdownButtonSizeTest, buttonAndItems_haveTheSameLeastSize)
{
    make();
    const wxSize size(scaleByDpi(73), scaleByDpi(24));
    EXPECT_EQ(button->GetMinSize(), size);
    EXPECT_EQ(item(0)->GetMinSize(), size);
    EXPECT_EQ(item(1)->GetMinSize(), size);
    EXPECT_EQ(popup()->GetClientSize(), wxSize(size.x, 2 * size.y));
}

TEST_F(DropdownButtonTest, construction_makesAButtonOfTheFirstChoiceAndItemsOfTheOthers)
{
    make();
    EXPECT_EQ(button->GetId(), 30);
    EXPECT_EQ(button->GetLabel(), L"one");
    EXPECT_EQ(item(0)->GetId(), 31);
    EXPECT_EQ(item(0)->GetLabel(), L"two");
    EXPECT_EQ(item(1)->GetId(), 32);
    EXPECT_EQ(item(1)->GetLabel(), L"three");
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_TRUE(popup()->HasFlag(wxFRAME_NO_TASKBAR));
    EXPECT_TRUE(popup()->HasFlag(wxSTAY_ON_TOP));
    EXPECT_EQ(popup()->GetWindowStyleFlag() & wxBORDER_MASK, wxBORDER_NONE);
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, arraysOfDifferentLengthsOrNone_areProgrammingErrors)
{
    const auto construct = [this](const Array<int>& ids, const Array<wxString>& labels,
                                  const Array<Function<void()>>& callbacks) {
        const DropdownButton wrong(panel, Wx::GuiSkin::DEFAULT(), ids, labels, {}, {}, callbacks, PUSH, true);
    };
    EXPECT_THROW(construct({}, {}, {}), StopException);
    EXPECT_THROW(construct({1, 2}, {L"a"}, {{}, {}}), StopException);
    EXPECT_THROW(construct({1, 2}, {L"a", L"b"}, {{}}), StopException);
}

TEST_F(DropdownButtonTest, setText_changesTheLabelOfThatPlace)
{
    make();
    button->setText(0, L"main");
    button->setText(1, L"first item");
    button->setText(2, L"second item");
    EXPECT_EQ(button->GetLabel(), L"main");
    EXPECT_EQ(item(0)->GetLabel(), L"first item");
    EXPECT_EQ(item(1)->GetLabel(), L"second item");
    EXPECT_THROW(button->setText(3, L""), StopException);
    EXPECT_THROW(button->setText(-1, L""), StopException);
}

TEST_F(DropdownButtonTest, shortClick_isTheMainChoiceAndOpensNothing)
{
    make();
    showFrame();
    int events = 0;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent& event) { events += event.GetId() == 30 ? 1 : 100; });
    Tests::clickAt(button, centre());
    EXPECT_EQ(reports, Array<wxString>({L"one"}));
    EXPECT_EQ(events, 1);
    Tests::pumpEvents(HELD);
    EXPECT_FALSE(popup()->IsShown());
}

TEST_F(DropdownButtonTest, held_opensThePopupDirectlyBelow)
{
    make();
    showFrame();
    holdUntilOpen();
    const wxPoint below = button->GetScreenPosition() + wxPoint(0, button->GetSize().y);
    EXPECT_EQ(popup()->GetScreenPosition(), below);
    EXPECT_TRUE(reports.empty());
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"one"})) << "released over the button it is the main choice";
    EXPECT_FALSE(popup()->IsShown());
}

TEST_F(DropdownButtonTest, held_opensNoSoonerThanItShould)
{
    make();
    showFrame();
    Tests::moveMouse(button, centre());
    const wxStopWatch watch;
    wxUIActionSimulator().MouseDown(wxMOUSE_BTN_LEFT);
    ASSERT_TRUE(Tests::pumpUntil([this] { return popup()->IsShown(); }, 2000));
    EXPECT_GE(watch.Time(), 140);
    Tests::releaseMouse();
}

// Timers that are due go off in the order of their starts, however late the event loop runs.
TEST_F(DropdownButtonTest, held_opensNoLaterThanItShould)
{
    make();
    showFrame();
    wxMouseEvent down(wxEVT_LEFT_DOWN);
    button->GetEventHandler()->ProcessEvent(down);
    wxTimer justAfter;
    justAfter.StartOnce(170);
    ASSERT_TRUE(Tests::pumpUntil([&] { return !justAfter.IsRunning(); }));
    EXPECT_TRUE(popup()->IsShown());
    wxMouseEvent up(wxEVT_LEFT_UP);
    button->GetEventHandler()->ProcessEvent(up);
}

TEST_F(DropdownButtonTest, held_leavesTheFocusWhereItWas)
{
    make();
    auto* neighbour = new wxPanel(panel, wxID_ANY, wxPoint(200, 100), wxSize(50, 50));
    showFrame();
    neighbour->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return neighbour->HasFocus() && frame->IsActive(); }));
    int lost = 0;
    neighbour->Bind(wxEVT_KILL_FOCUS, [&](wxFocusEvent&) { ++lost; });
    holdUntilOpen();
    EXPECT_EQ(lost, 0);
    EXPECT_TRUE(neighbour->HasFocus());
    EXPECT_TRUE(frame->IsActive());
    Tests::releaseMouse();
    EXPECT_EQ(lost, 0);
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownButtonTest, heldAgain_opensWithoutTheMarkOfLastTime)
{
    make();
    showFrame();
    choose(1);
    holdUntilOpen();
    EXPECT_FALSE(isMarked(0));
    EXPECT_FALSE(isMarked(1));
    EXPECT_NE(Tests::pixelAt(Tests::captureClientArea(item(1)), 1, 5), Wx::GuiSkin::DEFAULT().highlight);
    Tests::moveMouse(button, over(1));
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(item(1)), 1, 5), Wx::GuiSkin::DEFAULT().highlight);
    Tests::releaseMouse();
}

// The display server reports the popup's appearance when the popup is hidden again.
TEST_F(DropdownButtonTest, releasedAsItOpens_opensAgainWhenHeldAgain)
{
    make();
    showFrame();
    wxMouseEvent down(wxEVT_LEFT_DOWN);
    button->GetEventHandler()->ProcessEvent(down);
    wxTimer timer;
    wxTimerEvent held(timer);
    button->GetEventHandler()->ProcessEvent(held);
    EXPECT_TRUE(popup()->IsShown());
    wxMouseEvent up(wxEVT_LEFT_UP);
    up.SetPosition({250, 60});
    button->GetEventHandler()->ProcessEvent(up);
    EXPECT_FALSE(Tests::pumpUntil([this] { return popup()->IsShown(); }, HELD));
    choose(0);
    EXPECT_EQ(reports, Array<wxString>({L"two"}));
}

TEST_F(DropdownButtonTest, releasedOverAnItem_callsItsCallbackOnly)
{
    make();
    showFrame();
    int events = 0;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent&) { ++events; });
    choose(1);
    EXPECT_EQ(reports, Array<wxString>({L"three"}));
    EXPECT_EQ(events, 0);
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(button->GetLabel(), L"one");
}

TEST_F(DropdownButtonTest, releasedOverNoItem_hidesThePopupAndChoosesNothing)
{
    make();
    showFrame();
    holdUntilOpen();
    Tests::moveMouse(button, {250, 60});
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(DropdownButtonTest, released_endsTheHover)
{
    make();
    showFrame();
    for (const wxEventType type : {wxEVT_ENTER_WINDOW, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) {
        wxMouseEvent event(type);
        event.SetPosition({250, 60});
        button->GetEventHandler()->ProcessEvent(event);
        EXPECT_EQ(button->borderState().has(OskaBorderState::HOVERED), type != wxEVT_LEFT_UP);
    }
}

TEST_F(DropdownButtonTest, mouseOverTheItems_marksTheOneUnderIt)
{
    make();
    showFrame();
    holdUntilOpen();
    Tests::moveMouse(button, over(0));
    EXPECT_TRUE(isMarked(0));
    EXPECT_FALSE(isMarked(1));
    Tests::moveMouse(button, over(1));
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(1));
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(item(1)), 1, 5), Wx::GuiSkin::DEFAULT().highlight);
    EXPECT_NE(Tests::pixelAt(Tests::captureClientArea(item(0)), 1, 5), Wx::GuiSkin::DEFAULT().highlight);
    Tests::moveMouse(button, {250, 60});
    EXPECT_FALSE(isMarked(1));
    Tests::releaseMouse();
}

TEST_F(DropdownButtonTest, swap_makesTheChosenOneTheMainChoice)
{
    make(SWAP);
    showFrame();
    choose(1);
    EXPECT_EQ(button->GetLabel(), L"three");
    EXPECT_EQ(item(1)->GetLabel(), L"one");
    Tests::clickAt(button, centre());
    EXPECT_EQ(reports, Array<wxString>({L"three", L"three"}));
    choose(1);
    EXPECT_EQ(reports, Array<wxString>({L"three", L"three", L"one"}));
    EXPECT_EQ(button->GetLabel(), L"one");
}

TEST_F(DropdownButtonTest, singleChoice_opensAnEmptyPopup)
{
    make(PUSH, {L"only"});
    showFrame();
    holdUntilOpen();
    Tests::releaseMouse();
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_EQ(reports, Array<wxString>({L"only"}));
}

TEST_F(DropdownButtonTest, toggle_flipsWithTheMainChoiceOnly)
{
    make(TOGGLE);
    showFrame();
    Tests::clickAt(button, centre());
    EXPECT_TRUE(button->isToggled());
    choose(0);
    EXPECT_TRUE(button->isToggled());
    EXPECT_EQ(button->GetLabel(), L"one");
}

TEST_F(DropdownButtonTest, disabled_doesNotOpen)
{
    make(PUSH, {L"one", L"two"}, false);
    showFrame();
    Tests::pressMouseAt(button, centre());
    Tests::pumpEvents(HELD);
    EXPECT_FALSE(popup()->IsShown());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, captureLost_closesThePopupAndChoosesNothing)
{
    make();
    showFrame();
    holdUntilOpen();
    wxMouseCaptureLostEvent lost(button->GetId());
    EXPECT_TRUE(button->GetEventHandler()->ProcessEvent(lost));
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, captureLostBeforeItOpens_keepsItClosed)
{
    make();
    showFrame();
    Tests::pressMouseAt(button, centre());
    wxMouseCaptureLostEvent lost(button->GetId());
    EXPECT_TRUE(button->GetEventHandler()->ProcessEvent(lost));
    Tests::pumpEvents(HELD);
    EXPECT_FALSE(popup()->IsShown());
    Tests::releaseMouse();
}

TEST_F(DropdownButtonTest, makeChoice_callsTheCallbackOfThatChoice)
{
    make();
    int clicks = 0;
    panel->Bind(wxEVT_BUTTON, [&clicks](wxEvent&) { ++clicks; });
    for (const int index : {2, 0, 1})
        button->makeChoice(index);
    EXPECT_EQ(reports, Array<wxString>({L"three", L"one", L"two"}));
    EXPECT_EQ(clicks, 1) << "only the main choice is a click";
    EXPECT_EQ(button->GetLabel(), L"one");
    EXPECT_THROW(button->makeChoice(3), StopException);
    EXPECT_THROW(button->makeChoice(-1), StopException);
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownButtonTest, makeChoice_swapsWithTheMainChoice)
{
    make(SWAP);
    button->makeChoice(2);
    EXPECT_EQ(button->GetLabel(), L"three");
    EXPECT_EQ(item(1)->GetLabel(), L"one");
    button->makeChoice(0);
    EXPECT_EQ(reports, Array<wxString>({L"three", L"three"}));
}

TEST_F(DropdownButtonTest, makeChoiceThatDestroysTheButton_isSafe)
{
    makeWithCallback([this] { button->Destroy(); });
    button->makeChoice(1);
    EXPECT_FALSE(button);
}

TEST_F(DropdownButtonTest, makeChoiceOfADestroyedItem_doesNothing)
{
    make();
    item(0)->Destroy();
    button->makeChoice(1);
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, face_isOfTheStateAndTheSkin)
{
    make();
    EXPECT_EQ(button->face().accent, Wx::GuiSkin::DEFAULT().accent);
    EXPECT_EQ(button->face().button.label, L"one");
    EXPECT_EQ(button->face().button.border, Flags(OskaBorderState::ENABLED));
    wxMouseEvent entered(wxEVT_ENTER_WINDOW);
    button->GetEventHandler()->ProcessEvent(entered);
    EXPECT_TRUE(button->face().button.border.has(OskaBorderState::HOVERED));
    button->Enable(false);
    EXPECT_FALSE(button->face().button.border.has(OskaBorderState::ENABLED));
}

TEST_F(DropdownButtonTest, shown_paintsItsFace)
{
    make();
    showFrame();
    const wxPoint inTheCorner(button->GetSize().x - 4, button->GetSize().y - 4);
    EXPECT_TRUE(Tests::pumpUntil([&] {
        const wxImage image = Tests::captureClientArea(button);
        return Tests::pixelAt(image, inTheCorner.x, inTheCorner.y) == Wx::GuiSkin::DEFAULT().accent;
    }));
}
