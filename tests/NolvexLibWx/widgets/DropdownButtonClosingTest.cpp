// SPDX-License-Identifier: MIT
// Tests how the surroundings and the callbacks of an open drop-down button close it, rather than an ordinary
// release.
#include "DropdownButtonFixture.h"

#include <wx/dialog.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Nolvex;
using Tests::HELD;
using Tests::SWAP;
using Wx::DropdownButton;

namespace {

using DropdownButtonClosingTest = Tests::DropdownButtonFixture;

enum class Destroyed
{
    BUTTON,
    PARENT,
    FRAME,
};

/// Destroys a window when the popup is shown or hidden.
struct DropdownButtonDestructionTest : Tests::DropdownButtonFixture, testing::WithParamInterface<Destroyed>
{
    wxWeakRef<wxPanel> inner = new wxPanel(panel, wxID_ANY, wxPoint(0, 0), wxSize(200, 100));

    void destroyWhenPopupIs(bool shown)
    {
        make(SWAP);
        button->Reparent(inner);
        showFrame();
        popup()->Bind(wxEVT_SHOW, [this, shown](wxShowEvent& event) {
            if (event.IsShown() == shown)
                destroy();
        });
    }

    void destroy() const
    {
        if (GetParam() == Destroyed::BUTTON)
            button->Destroy();
        else if (GetParam() == Destroyed::PARENT)
            inner->Destroy();
        else
            frame->Destroy();
    }
};

} // namespace

TEST_F(DropdownButtonClosingTest, disabledWhileOpen_staysOpenUntilTheRelease)
{
    make();
    showFrame();
    holdUntilOpen();
    button->Enable(false);
    Tests::pumpEvents(50);
    EXPECT_TRUE(popup()->IsShown());
    Tests::moveMouse(button, over(1));
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"three"}));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(DropdownButtonClosingTest, hiddenWhileOpen_hasClosedThePopupAfterTheRelease)
{
    make();
    showFrame();
    holdUntilOpen();
    button->Hide();
    Tests::moveMouse(panel, {300, 200});
    Tests::releaseMouse();
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonClosingTest, frameHiddenWhileOpen_closesThePopupAndChoosesNothing)
{
    make();
    showFrame();
    holdUntilOpen();
    frame->Hide();
    EXPECT_TRUE(hides());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonClosingTest, frameMinimisedWhileOpen_closesThePopupAndChoosesNothing)
{
    make();
    showFrame();
    holdUntilOpen();
    Tests::moveMouse(button, over(1));
    frame->Iconize();
    EXPECT_TRUE(hides());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
    frame->Iconize(false);
}

TEST_F(DropdownButtonClosingTest, frameDisabledWhileOpen_closesThePopupAndChoosesNothing)
{
    make();
    showFrame();
    holdUntilOpen();
    Tests::moveMouse(button, over(1));
    frame->Disable();
    EXPECT_TRUE(hides());
    frame->Enable();
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonClosingTest, modalDialogWhileOpen_closesThePopupAndChoosesNothing)
{
    make();
    showFrame();
    holdUntilOpen();
    Tests::moveMouse(button, over(1));
    wxDialog dialog(frame, wxID_ANY, L"modal", wxPoint(500, 400));
    bool isOpen = true;
    dialog.Bind(wxEVT_INIT_DIALOG, [&](wxInitDialogEvent&) {
        dialog.CallAfter([&] {
            isOpen = popup()->IsShown();
            Tests::releaseMouse();
            dialog.EndModal(wxID_OK);
        });
    });
    EXPECT_EQ(dialog.ShowModal(), wxID_OK);
    Tests::pumpEvents();
    EXPECT_FALSE(isOpen);
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonClosingTest, popupClosedByTheKeyboard_isOnlyHidden)
{
    make();
    showFrame();
    holdUntilOpen();
    popup()->Close();
    Tests::pumpEvents(50);
    ASSERT_NE(popup(), nullptr);
    EXPECT_FALSE(popup()->IsShown());
    Tests::releaseMouse();
    choose(0);
    EXPECT_EQ(reports.back(), L"two");
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatThrows_leavesNothingPressedOrOpen)
{
    makeWithCallback([] { throw std::runtime_error("thrown by the callback"); });
    showFrame();
    holdUntilOpen();
    wxMouseEvent up(wxEVT_LEFT_UP);
    up.SetPosition(over(0));
    EXPECT_THROW(button->GetEventHandler()->ProcessEvent(up), std::runtime_error);
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(button->GetLabel(), L"one") << "what throws does not become the main choice";
    Tests::releaseMouse();
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatDestroysTheButtonAndThrows_isSafe)
{
    makeWithCallback([this] {
        button->Destroy();
        throw std::runtime_error("thrown by the callback");
    });
    showFrame();
    holdUntilOpen();
    wxMouseEvent up(wxEVT_LEFT_UP);
    up.SetPosition(over(0));
    wxEvtHandler* const handler = button->GetEventHandler();
    EXPECT_THROW(handler->ProcessEvent(up), std::runtime_error);
    EXPECT_FALSE(button);
    Tests::releaseMouse();
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatDisablesAndEnables_doesNotTakeTheMouseBack)
{
    bool called = false;
    makeWithCallback([this, &called] {
        for (wxWindow* window : {static_cast<wxWindow*>(panel), static_cast<wxWindow*>(button.get())}) {
            window->Disable();
            EXPECT_EQ(wxWindow::GetCapture(), nullptr);
            window->Enable();
            EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        }
        called = true;
    });
    showFrame();
    choose(0);
    EXPECT_TRUE(called);
    EXPECT_FALSE(button->isPressed());
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatDestroysTheButton_isSafe)
{
    makeWithCallback([this] { button->Destroy(); });
    showFrame();
    choose(0);
    EXPECT_FALSE(button);
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatDestroysThePopup_isSafe)
{
    makeWithCallback([this] { button->DestroyChildren(); });
    showFrame();
    choose(0);
    EXPECT_FALSE(button->isPressed());
    EXPECT_TRUE(button->GetChildren().empty());
}

TEST_F(DropdownButtonClosingTest, withoutItsChildren_itIsAPlainButton)
{
    make();
    showFrame();
    button->DestroyChildren();
    button->setText(1, L"shown by no item");
    Tests::pressMouseAt(button, centre());
    Tests::moveMouse(button, centre() + wxPoint(1, 1));
    Tests::pumpEvents(HELD);
    button->Refresh();
    button->Update();
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"one"}));
    wxMouseCaptureLostEvent lost(button->GetId());
    EXPECT_TRUE(button->GetEventHandler()->ProcessEvent(lost));
}

TEST_F(DropdownButtonClosingTest, childrenDestroyedWhileOpen_endsAsAPlainClick)
{
    make();
    showFrame();
    holdUntilOpen();
    button->DestroyChildren();
    Tests::moveMouse(button, centre() + wxPoint(1, 1));
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"one"}));
}

TEST_F(DropdownButtonClosingTest, reparented_opensBelowItsNewPlace)
{
    make();
    showFrame();
    choose(0);
    auto* other = new wxFrame(nullptr, wxID_ANY, L"other", wxPoint(560, 300), wxSize(300, 200));
    button->Reparent(new wxPanel(other));
    destroyFrame();
    other->Show();
    other->Raise();
    ASSERT_TRUE(Tests::pumpUntil([this] { return button->IsShownOnScreen(); }));
    Tests::pumpEvents(200);
    holdUntilOpen();
    EXPECT_EQ(popup()->GetScreenPosition(), button->GetScreenPosition() + wxPoint(0, button->GetSize().y));
    Tests::moveMouse(button, over(1));
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"two", L"three"}));
    Tests::destroyNow(other);
    EXPECT_FALSE(button);
}

TEST_F(DropdownButtonClosingTest, reparentedItem_outlivesTheButton)
{
    make();
    showFrame();
    Wx::Button* const taken = item(0);
    taken->Reparent(panel);
    taken->SetSize(200, 100, 73, 24);
    button->Destroy();
    Tests::clickAt(taken, {5, 5});
    EXPECT_EQ(reports, Array<wxString>({L"two"}));
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatDestroysItsItem_isSafe)
{
    button = new DropdownButton(
        panel, Wx::GuiSkin::DEFAULT(), {40, 41, 42}, {L"one", L"two", L"three"}, {}, {},
        {Function<void()>(), [this] { item(0)->Destroy(); }, [this] { reports.push_back(L"three"); }}, SWAP,
        true);
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    showFrame();
    choose(0);
    EXPECT_EQ(button->GetLabel(), L"one") << "there is nothing to swap with";
    button->setText(1, L"nobody shows this");
    choose(0);
    EXPECT_EQ(reports, Array<wxString>({L"three"})) << "the other item is the only one now";
}

TEST_F(DropdownButtonClosingTest, itemCallbackThatDestroysTheFrame_isSafe)
{
    makeWithCallback([this] { frame->Destroy(); });
    showFrame();
    choose(0);
    EXPECT_TRUE(Tests::pumpUntil([this] { return !frame; }));
}

TEST_F(DropdownButtonClosingTest, mainCallbackThatDestroysTheParent_isSafe)
{
    auto* inner = new wxPanel(panel, wxID_ANY, wxPoint(0, 0), wxSize(200, 100));
    button = new DropdownButton(inner, Wx::GuiSkin::DEFAULT(), {1, 2}, {L"one", L"two"}, {}, {},
                                {[inner] { delete inner; }, Function<void()>()}, SWAP, true);
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    showFrame();
    Tests::clickAt(button, centre());
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(DropdownButtonClosingTest, destroyedWhileOpen_takesThePopupAlong)
{
    make();
    showFrame();
    holdUntilOpen();
    const wxWeakRef<wxFrame> open(popup());
    button->Destroy();
    EXPECT_FALSE(open);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
}

TEST_P(DropdownButtonDestructionTest, asThePopupIsShown_isSafe)
{
    destroyWhenPopupIs(true);
    Tests::pressMouseAt(button, centre());
    EXPECT_TRUE(Tests::pumpUntil([this] { return !button; }));
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_P(DropdownButtonDestructionTest, asThePopupIsHidden_isSafe)
{
    destroyWhenPopupIs(false);
    holdUntilOpen();
    Tests::moveMouse(button, over(0));
    Tests::releaseMouse();
    EXPECT_TRUE(Tests::pumpUntil([this] { return !button; }));
    EXPECT_EQ(reports, Array<wxString>({L"two"}));
}

TEST_P(DropdownButtonDestructionTest, asThePopupHidesFromADisabledParent_isSafe)
{
    destroyWhenPopupIs(false);
    holdUntilOpen();
    panel->Disable();
    EXPECT_TRUE(Tests::pumpUntil([this] { return !button; }));
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

INSTANTIATE_TEST_SUITE_P(Windows, DropdownButtonDestructionTest,
                         testing::Values(Destroyed::BUTTON, Destroyed::PARENT, Destroyed::FRAME));
