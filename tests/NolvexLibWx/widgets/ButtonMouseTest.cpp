// SPDX-License-Identifier: MIT
// Tests buttons with real input of the system's mouse.
#include "ButtonFixture.h"

#include "support/ProcessResources.h"

#include <wx/popupwin.h>

#include <utility>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

struct ButtonMouseTest : ButtonFixture
{};

} // namespace

TEST_F(ButtonMouseTest, clicksIt)
{
    Button* button = make();
    show();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_EQ(reports.position, INSIDE);
}

TEST_F(ButtonMouseTest, pressedInsideAndReleasedOutside_clicksNothing)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    EXPECT_TRUE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), button);
    EXPECT_EQ(shownBackground(button), testSkin().pressedBackground);
    Tests::moveMouse(button, OUTSIDE);
    EXPECT_TRUE(button->isPressed());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_EQ(shownBackground(button), testSkin().background);
}

TEST_F(ButtonMouseTest, pressedOutsideAndReleasedInside_clicksNothing)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, OUTSIDE);
    Tests::moveMouse(button, INSIDE);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonMouseTest, doubleClick_clicksTwice)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    wxUIActionSimulator().MouseDblClick(wxMOUSE_BTN_LEFT);
    Tests::pumpEvents(100);
    EXPECT_EQ(reports.entries, Entries({"event", "callback", "event", "callback"}));
}

TEST_F(ButtonMouseTest, overIt_lightsTheBorderUntilItLeaves)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    EXPECT_TRUE(button->borderState().has(OskaBorderState::HOVERED));
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(button), 1, 5), GuiSkin::DEFAULT().highlight);
    Tests::moveMouse(button, OUTSIDE);
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(ButtonMouseTest, windowThatCoversIt_endsTheHover)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    ASSERT_TRUE(button->borderState().has(OskaBorderState::HOVERED));
    wxPopupWindow cover(frame);
    cover.SetSize(wxRect(button->GetScreenPosition(), BUTTON_SIZE));
    cover.Show();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !button->borderState().has(OskaBorderState::HOVERED); }, 1000));
    cover.Hide();
}

TEST_F(ButtonMouseTest, mouseTakenByAnotherWindow_comesBackAndIsNotKept)
{
    Button* button = make();
    auto* thief = new wxPanel(panel, wxID_ANY, wxPoint(20, 100), wxSize(50, 50));
    thief->Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
    show();
    Tests::pressMouseAt(button, INSIDE);
    ASSERT_EQ(wxWindow::GetCapture(), button);
    thief->CaptureMouse();
    Tests::moveMouse(button, INSIDE + wxPoint(1, 1));
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty()) << "the release went to the other window";
    thief->ReleaseMouse();
    // wxWidgets gives the mouse back to the window below, which is still pressed.
    EXPECT_EQ(wxWindow::GetCapture(), button);
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ButtonMouseTest, hiddenWhilePressed_cancelsThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    ASSERT_TRUE(button->isPressed());
    button->Hide();
    EXPECT_TRUE(Tests::pumpUntil([button] { return !button->isPressed(); }));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonMouseTest, disabledUnderTheMouse_isNoLongerLitWhenTheMouseHasGone)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    ASSERT_TRUE(button->borderState().has(OskaBorderState::HOVERED));
    button->Enable(false);
    Tests::moveMouse(button, OUTSIDE);
    button->Enable(true);
    Tests::pumpEvents(50);
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(ButtonMouseTest, onADisabledButton_doesNothing)
{
    Button* button = make();
    show();
    button->Enable(false);
    Tests::clickAt(button, INSIDE);
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_FALSE(button->isPressed());
}

TEST_F(ButtonMouseTest, disabledWhilePressed_stillCompletesThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    button->Enable(false);
    EXPECT_TRUE(button->isPressed());
    Tests::pumpEvents(50);
    Tests::releaseMouse();
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries.size(), 2u) << "then it is disabled";
}

TEST_F(ButtonMouseTest, parentDisabledWhilePressed_stillCompletesThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    panel->Disable();
    EXPECT_TRUE(button->isPressed());
    Tests::pumpEvents(50);
    Tests::releaseMouse();
    EXPECT_TRUE(Tests::pumpUntil([button] { return !button->isPressed(); }));
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_EQ(reports.position, INSIDE);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries.size(), 2u) << "then it is disabled";
    panel->Enable();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries.size(), 4u);
}

TEST_F(ButtonMouseTest, frameDisabledWhilePressed_stillCompletesThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    frame->Disable();
    Tests::pumpEvents(50);
    Tests::releaseMouse();
    EXPECT_TRUE(Tests::pumpUntil([button] { return !button->isPressed(); }));
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    frame->Enable();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries.size(), 4u);
}

TEST_F(ButtonMouseTest, parentDisabledWhilePressed_releasedOutside_clicksNothing)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    panel->Disable();
    Tests::moveMouse(button, OUTSIDE);
    Tests::releaseMouse();
    EXPECT_TRUE(Tests::pumpUntil([button] { return !button->isPressed(); }));
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ButtonMouseTest, disabledAndEnabledWhilePressed_completesThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    panel->Disable();
    Tests::pumpEvents(50);
    panel->Enable();
    Tests::releaseMouse();
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries.size(), 4u);
}

TEST_F(ButtonMouseTest, destroyedWhilePressedAndDisabled_setsTheMouseFree)
{
    Button* button = make();
    Button* other = make();
    other->Move(20, 100);
    show();
    Tests::pressMouseAt(button, INSIDE);
    button->Disable();
    Tests::pumpEvents(50);
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
    Tests::clickAt(other, INSIDE);
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
}

TEST_F(ButtonMouseTest, minimisedWhilePressed_cancelsThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    frame->Iconize();
    EXPECT_TRUE(Tests::pumpUntil([button] { return !button->isPressed(); }));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonMouseTest, reparentedWhilePressed_doesNotKeepTheMouse)
{
    auto* other = new wxPanel(panel, wxID_ANY, wxPoint(0, 120), wxSize(300, 100));
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    button->Reparent(other);
    EXPECT_TRUE(Tests::pumpUntil([button] { return !button->isPressed(); }));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
    Tests::clickAt(button, INSIDE);
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(reports.entries, Entries({"callback"})) << "the event goes to the new parent";
}

TEST_F(ButtonMouseTest, enabledAgainUnderTheMouse_isLitAgain)
{
    Button* button = make();
    show();
    const auto isLit = [button] { return button->borderState().has(OskaBorderState::HOVERED); };
    Tests::moveMouse(button, INSIDE);
    ASSERT_TRUE(isLit());
    for (wxWindow* window : {static_cast<wxWindow*>(button), static_cast<wxWindow*>(panel)}) {
        window->Disable();
        Tests::pumpEvents(50);
        window->Enable();
        EXPECT_TRUE(Tests::pumpUntil(isLit, 1000));
    }
    Tests::moveMouse(button, OUTSIDE);
    EXPECT_TRUE(Tests::pumpUntil([&isLit] { return !isLit(); }, 1000));
}

TEST_F(ButtonMouseTest, enabledUnderTheMouseForTheFirstTime_isLit)
{
    for (const bool parentDisabled : {false, true}) {
        Button* button = make(L"Label", PUSH, parentDisabled);
        panel->Enable(!parentDisabled);
        show();
        Tests::moveMouse(button, INSIDE);
        panel->Enable();
        button->Enable();
        // Windows reports the mouse to a window that was enabled with the next movement only.
        Tests::moveMouse(button, INSIDE + wxPoint(1, 0));
        EXPECT_TRUE(
            Tests::pumpUntil([button] { return button->borderState().has(OskaBorderState::HOVERED); }, 1000))
            << parentDisabled;
        button->Destroy();
    }
}

TEST_F(ButtonMouseTest, enabledAgainWhenTheMouseHasGone_isNotLit)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    panel->Disable();
    Tests::moveMouse(button, OUTSIDE);
    panel->Enable();
    Tests::pumpEvents(50);
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(ButtonMouseTest, callbackThatDestroysTheButton_isSafe)
{
    Button* button = nullptr;
    button = new Button(
        panel, testSkin(), 17, wxString(), {}, {}, [&button] { std::exchange(button, nullptr)->Destroy(); },
        PUSH, true, ENABLED);
    button->SetSize(wxRect(wxPoint(20, 20), BUTTON_SIZE));
    button->setTooltip(L"It goes too.");
    show();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(button, nullptr);
}

TEST_F(ButtonMouseTest, tenThousand_createdShownAndDestroyed_leaveNothingBehind)
{
    constexpr int ROUNDS = 100;
    constexpr int BUTTONS = 100;
    show();
    std::size_t memory = 0;
    std::size_t handles = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        // Whenever a visible window changes, Wine works out again which parts of all its siblings are
        // visible, which would take most of the time of this test.
        auto* page = new wxPanel;
        page->Hide();
        page->Create(panel, wxID_ANY, wxPoint(0, 0), panel->GetClientSize());
        for (int i = 0; i < BUTTONS; ++i) {
            auto* button = new Button(
                page, testSkin(), i, L"Label", {}, {}, [] {}, TOGGLE, true, ENABLED);
            button->SetSize(wxRect((i % 20) * 18, (i / 20) * 10, 17, 9));
        }
        int painted = 0;
        page->GetChildren().GetLast()->GetData()->Bind(wxEVT_PAINT, [&painted](wxPaintEvent& event) {
            ++painted;
            event.Skip();
        });
        page->Show();
        ASSERT_TRUE(Tests::pumpUntil([&painted] { return painted > 0; })) << round;
        page->Hide();
        delete page;
        Tests::pumpEvents(0);
        // The first rounds fill the caches of wxWidgets and the system.
        if (round == ROUNDS / 4) {
            memory = Tests::privateMemory();
            handles = Tests::openHandles();
        }
    }
    EXPECT_LE(Tests::privateMemory(), memory + 2 * 1024 * 1024);
    EXPECT_LE(Tests::openHandles(), handles);
}
