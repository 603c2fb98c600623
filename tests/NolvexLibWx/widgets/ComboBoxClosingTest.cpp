// SPDX-License-Identifier: MIT
// Tests what closes the list of a combo box besides a click on the box or on a row, what leaves it open, and
// that callbacks may destroy the box.
#include "ComboBoxFixture.h"

#include <wx/dialog.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Nolvex;
using Wx::ComboBox;

namespace {

struct ComboBoxClosingTest : Tests::ComboBoxFixture
{
    void openByClick()
    {
        if (!box)
            makeWithItems(5, 0);
        showFrame();
        clickBox();
        ASSERT_TRUE(opens());
    }

    void expectToOpenAgain() const
    {
        clickBox();
        EXPECT_TRUE(opens());
        Tests::clickAt(canvas(), inRow(1));
        EXPECT_TRUE(closes());
        EXPECT_EQ(calls, Array<int>({101}));
    }
};

enum class Destroyed
{
    BOX,
    LIST,
    PARENT,
    FRAME,
};

/// Destroys a window in a callback.
struct ComboBoxDestructionTest : Tests::ComboBoxFixture, testing::WithParamInterface<Destroyed>
{
    wxWeakRef<wxPanel> inner = new wxPanel(panel, wxID_ANY, wxPoint(0, 0), wxSize(300, 200));

    void makeInside(const Function<void(int)>& onSelect = {})
    {
        box = new ComboBox(
            inner, 7, 120, onSelect, [this](wxWindow* window, ComboBox::WindowEvent) { dropdown = window; },
            true);
        box->Move(20, 20);
        box->setData(Tests::manyItems(5));
    }

    void destroy() const
    {
        if (GetParam() == Destroyed::BOX)
            box->Destroy();
        else if (GetParam() == Destroyed::LIST)
            box->DestroyChildren();
        else if (GetParam() == Destroyed::PARENT)
            inner->Destroy();
        else
            frame->Destroy();
    }

    void expectDestroyed() const
    {
        EXPECT_TRUE(Tests::pumpUntil([this] { return !dropdown; }));
        EXPECT_EQ(!box, GetParam() != Destroyed::LIST);
    }
};

} // namespace

TEST_F(ComboBoxClosingTest, focusElsewhere_closesIt)
{
    auto* text = new wxTextCtrl(panel, wxID_ANY, {}, wxPoint(200, 200));
    openByClick();
    Tests::moveMouse(panel, {250, 150});
    text->SetFocus();
    EXPECT_TRUE(closes());
    Tests::pumpEvents();
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, focusElsewhereWithTheMouseInside_leavesItOpen)
{
    auto* text = new wxTextCtrl(panel, wxID_ANY, {}, wxPoint(200, 200));
    openByClick();
    Tests::moveMouse(canvas(), inRow(2));
    text->SetFocus();
    Tests::pumpEvents(100);
    EXPECT_TRUE(isOpen());
    clickBox();
    EXPECT_TRUE(closes());
}

TEST_F(ComboBoxClosingTest, focusLostForAMoment_leavesItOpen)
{
    openByClick();
    ASSERT_TRUE(Tests::pumpUntil([this] { return box->HasFocus(); }));
    Tests::moveMouse(panel, {250, 150});
    wxFocusEvent lost(wxEVT_KILL_FOCUS, box->GetId());
    lost.SetEventObject(box);
    box->GetEventHandler()->ProcessEvent(lost);
    EXPECT_TRUE(lost.GetSkipped());
    Tests::pumpEvents(250);
    EXPECT_TRUE(isOpen()) << "the box has the focus";
    box->setOpen(false);
}

TEST_F(ComboBoxClosingTest, focusLostByTheListItself_closesIt)
{
    makeWithItems(5, 0);
    openByClick();
    for (wxWindow* const window : {dropdown.get(), static_cast<wxWindow*>(canvas())}) {
        box->setOpen(true);
        wxFocusEvent lost(wxEVT_KILL_FOCUS, window->GetId());
        lost.SetEventObject(window);
        window->GetEventHandler()->ProcessEvent(lost);
        EXPECT_TRUE(lost.GetSkipped());
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(ComboBoxClosingTest, otherFrameActivated_closesIt)
{
    openByClick();
    Tests::moveMouse(panel, {250, 150});
    auto* other = new wxFrame(nullptr, wxID_ANY, L"other", wxPoint(600, 500), wxSize(200, 100));
    auto* text = new wxTextCtrl(other, wxID_ANY);
    other->Show();
    other->Raise();
    text->SetFocus();
    EXPECT_TRUE(closes());
    Tests::destroyNow(other);
    frame->Raise();
    ASSERT_TRUE(Tests::pumpUntil([this] { return frame->IsActive(); }));
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, clickOnAWindowWithoutFocus_closesIt)
{
    auto* label = new wxPanel(panel, wxID_ANY, wxPoint(200, 150), wxSize(50, 50));
    label->SetCanFocus(false);
    openByClick();
    Tests::clickAt(label, {10, 10});
    EXPECT_TRUE(closes());
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, clickOnAnotherBox_closesTheOneAndOpensTheOther)
{
    auto* other = new ComboBox(panel, wxID_ANY, 100, {}, {}, true);
    other->Move(200, 20);
    openByClick();
    Tests::clickAt(other, {10, 10});
    EXPECT_TRUE(Tests::pumpUntil([&] { return other->isOpen() && !isOpen(); }, 2000));
    other->setOpen(false);
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, keys_openAndCloseIt)
{
    makeWithItems(5, 0);
    showFrame();
    box->SetFocus();
    for (const int open : {WXK_F4, WXK_SPACE}) {
        for (const int close : {WXK_F4, WXK_SPACE, WXK_ESCAPE, WXK_RETURN, WXK_NUMPAD_ENTER}) {
            EXPECT_TRUE(sendKey(open));
            EXPECT_TRUE(isOpen());
            EXPECT_TRUE(sendKey(close));
            EXPECT_FALSE(isOpen());
        }
    }
    expectSelected({});
}

TEST_F(ComboBoxClosingTest, tab_closesItEvenWithTheMouseInside)
{
    makeWithItems(5, 0);
    auto* next = new ComboBox(panel, wxID_ANY, 50, {}, {}, true);
    next->Move(200, 200);
    openByClick();
    ASSERT_TRUE(Tests::pumpUntil([this] { return box->HasFocus(); }));
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(closes());
    EXPECT_TRUE(Tests::pumpUntil([&] { return next->HasFocus(); }, 2000));
}

TEST_F(ComboBoxClosingTest, boxDisabled_closesIt)
{
    openByClick();
    box->Disable();
    EXPECT_FALSE(isOpen());
    box->setOpen(true);
    EXPECT_FALSE(isOpen());
    box->Enable();
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, boxDisabledWithoutTheFocus_closesIt)
{
    makeWithItems(5, 0);
    auto* other = new ComboBox(panel, wxID_ANY, 50, {}, {}, true);
    showFrame();
    other->SetFocus();
    box->setOpen(true);
    ASSERT_TRUE(opens());
    Tests::pumpEvents();
    box->Disable();
    EXPECT_FALSE(isOpen());
}

TEST_F(ComboBoxClosingTest, boxHidden_closesIt)
{
    openByClick();
    box->Hide();
    EXPECT_TRUE(closes());
    box->Show();
    Tests::pumpEvents();
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, frameHidden_closesIt)
{
    openByClick();
    frame->Hide();
    EXPECT_TRUE(closes());
    showFrame();
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, frameMinimised_closesIt)
{
    openByClick();
    frame->Iconize();
    EXPECT_TRUE(closes());
    frame->Iconize(false);
    showFrame();
    ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->IsIconized() && box->IsShownOnScreen(); }));
    Tests::pumpEvents(300);
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, frameMoved_takesItAlong)
{
    openByClick();
    const wxPoint before = dropdown->GetScreenPosition();
    frame->Move(frame->GetPosition() + wxPoint(80, 60));
    EXPECT_TRUE(Tests::pumpUntil(
        [&] {
            return !isOpen() ||
                   (dropdown->GetScreenPosition() != before &&
                    dropdown->GetScreenPosition() == box->GetScreenPosition() + wxPoint(0, box->GetSize().y));
        },
        3000));
    EXPECT_TRUE(isOpen());
    box->setOpen(false);
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, modalDialog_closesIt)
{
    openByClick();
    wxDialog dialog(frame, wxID_ANY, L"modal", wxPoint(500, 400));
    bool shownBeside = true;
    dialog.Bind(wxEVT_INIT_DIALOG, [&](wxInitDialogEvent&) {
        shownBeside = isOpen();
        dialog.CallAfter([&dialog] { dialog.EndModal(wxID_OK); });
    });
    EXPECT_EQ(dialog.ShowModal(), wxID_OK);
    EXPECT_FALSE(shownBeside);
    Tests::pumpUntil([this] { return frame->IsActive(); }, 1000);
    expectToOpenAgain();
}

TEST_F(ComboBoxClosingTest, destroyedWhileOpen_takesTheListAlong)
{
    openByClick();
    box->Destroy();
    EXPECT_FALSE(dropdown);
    Tests::pumpEvents();
}

TEST_F(ComboBoxClosingTest, frameDestroyedWhileOpen_takesTheListAlong)
{
    openByClick();
    destroyFrame();
    EXPECT_FALSE(dropdown);
}

TEST_F(ComboBoxClosingTest, callbackThatThrows_leavesNothingOpen)
{
    box = new ComboBox(
        panel, 7, 120, [](int) { throw std::runtime_error("thrown by the callback"); },
        [this](wxWindow* window, ComboBox::WindowEvent) { dropdown = window; }, true);
    box->Move(20, 20);
    box->setData(Tests::manyItems(5));
    openByClick();
    EXPECT_THROW(sendMouse(canvas(), wxEVT_LEFT_UP, inRow(2)), std::runtime_error);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(box->getSelectedIndex(), 2);
}

TEST_P(ComboBoxDestructionTest, inTheCallbackOfAKey_isSafe)
{
    makeInside([this](int) { destroy(); });
    showFrame();
    box->setOpen(true);
    sendKey(WXK_DOWN);
    expectDestroyed();
}

TEST_P(ComboBoxDestructionTest, inTheCallbackOfTheWheel_isSafe)
{
    makeInside([this](int) { destroy(); });
    showFrame();
    box->setOpen(true);
    sendMouse(canvas(), wxEVT_MOUSEWHEEL, {5, 5}, -120);
    expectDestroyed();
}

TEST_P(ComboBoxDestructionTest, inTheEventOfAClick_isSafe)
{
    int called = 0;
    makeInside([&](int) { ++called; });
    inner->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) { destroy(); });
    showFrame();
    Tests::clickAt(box, centre());
    ASSERT_TRUE(opens());
    Tests::clickAt(canvas(), inRow(2));
    expectDestroyed();
    EXPECT_EQ(called, GetParam() == Destroyed::LIST || GetParam() == Destroyed::FRAME ? 1 : 0)
        << "a frame is destroyed later";
}

TEST_P(ComboBoxDestructionTest, inTheProgramsOwnSelection_isSafe)
{
    makeInside([this](int) { destroy(); });
    box->selectIndex(3, true);
    expectDestroyed();
}

TEST_P(ComboBoxDestructionTest, asTheListOpens_isSafe)
{
    makeInside();
    showFrame();
    dropdown->Bind(wxEVT_SHOW, [this](wxShowEvent&) { destroy(); });
    Tests::pressMouseAt(box, centre());
    expectDestroyed();
    Tests::releaseMouse();
}

TEST_P(ComboBoxDestructionTest, asTheListCloses_isSafe)
{
    makeInside();
    showFrame();
    Tests::clickAt(box, centre());
    ASSERT_TRUE(opens());
    dropdown->Bind(wxEVT_SHOW, [this](wxShowEvent&) { destroy(); });
    Tests::pressMouseAt(box, centre());
    expectDestroyed();
    Tests::releaseMouse();
}

TEST_P(ComboBoxDestructionTest, asAClickElsewhereClosesTheList_isSafe)
{
    makeInside();
    showFrame();
    Tests::clickAt(box, centre());
    ASSERT_TRUE(opens());
    dropdown->Bind(wxEVT_SHOW, [this](wxShowEvent&) { destroy(); });
    Tests::pressMouseAt(inner, {250, 150});
    expectDestroyed();
    Tests::releaseMouse();
}

TEST_P(ComboBoxDestructionTest, asTheFocusLeaves_isSafe)
{
    makeInside();
    auto* text = new wxTextCtrl(panel, wxID_ANY, {}, wxPoint(320, 200));
    showFrame();
    Tests::clickAt(box, centre());
    ASSERT_TRUE(opens());
    dropdown->Bind(wxEVT_SHOW, [this](wxShowEvent&) { destroy(); });
    Tests::moveMouse(inner, {280, 190});
    text->SetFocus();
    expectDestroyed();
}

INSTANTIATE_TEST_SUITE_P(Windows, ComboBoxDestructionTest,
                         testing::Values(Destroyed::BOX, Destroyed::LIST, Destroyed::PARENT,
                                         Destroyed::FRAME));
