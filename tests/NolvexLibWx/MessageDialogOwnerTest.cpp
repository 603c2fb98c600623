// SPDX-License-Identifier: MIT
// Owners that wxWidgets did not create, owners that die, and dialogs that are shown in awkward moments.
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "support/FrameFixture.h"
#include "support/MessageDialogDriver.h"
#include "support/NativeTestWindow.h"

#include <wx/textctrl.h>
#include <wx/timer.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Nolvex;
using Tests::MessageDialogDriver;
using Wx::MessageDialog;
using Wx::MessageDialogButton;
using Wx::MessageDialogControl;
using Wx::MessageDialogIcon;

namespace {

constexpr int CLOSED = 16000;

int ask(WindowHandle owner)
{
    const MessageDialogControl* const controls[] = {&MessageDialogButton::YES, &MessageDialogButton::NO};
    return Wx::Detail::showMessageDialogImpl(owner, L"Title", L"Sure?", MessageDialogIcon::QUESTION,
                                             controls);
}

void answerYes(MessageDialog& /*dialog*/)
{
    Tests::typeKey('Y');
}

constexpr int YES = 16004;

/// Clicks into the window and types a character.
void typeInto(const Tests::NativeTestWindow& host)
{
    const Pixel start = Wx::getScreenRegion(host.field()).min;
    wxUIActionSimulator().MouseMove(start.x + 8, start.y + 8);
    Tests::pumpEvents(Tests::GESTURE_TIME);
    wxUIActionSimulator().MouseClick();
    Tests::pumpEvents(Tests::GESTURE_TIME);
    Tests::typeKey('z');
}

struct MessageDialogOwnerTest : Tests::FrameFixture
{
    /// Shows the frame beside the windows of the test.
    void showFrameAside() const
    {
        frame->SetPosition(wxPoint(700, 100));
        showFrame();
    }

    void expectUsable() const
    {
        EXPECT_TRUE(frame->IsEnabled());
        auto* field = new wxTextCtrl(panel, wxID_ANY);
        frame->Raise();
        field->SetFocus();
        EXPECT_TRUE(Tests::pumpUntil([&] { return field->HasFocus(); }));
        Tests::typeKey('x');
        EXPECT_EQ(field->GetValue(), "x");
    }

    WindowHandle owner() const { return Wx::getWindowNativeHandle(frame); }
};

} // namespace

TEST_F(MessageDialogOwnerTest, foreignOwner_staysTheOwnerAndGetsTheFocusBack)
{
    showFrameAside();
    const Tests::NativeTestWindow host;
    {
        const MessageDialogDriver driver([&](MessageDialog& dialog) {
            EXPECT_EQ(Wx::getOwnerAsNativeHandle(Wx::getWindowNativeHandle(&dialog)), host.handle());
            answerYes(dialog);
        });
        EXPECT_EQ(ask(host.handle()), YES);
    }
    EXPECT_TRUE(host.isAlive());
    EXPECT_TRUE(host.isEnabled());
    EXPECT_TRUE(Tests::pumpUntil([&] { return host.hasFocus(); }));
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, foreignOwner_takesNoInputMeanwhile)
{
    const Tests::NativeTestWindow host;
    showFrameAside();
    {
        const MessageDialogDriver driver([&](MessageDialog& dialog) {
            typeInto(host);
            EXPECT_EQ(host.text(), L"");
            dialog.Raise();
            EXPECT_TRUE(Tests::pumpUntil([&] { return dialog.IsActive(); }));
            answerYes(dialog);
        });
        EXPECT_EQ(ask(host.handle()), YES);
    }
    typeInto(host);
    EXPECT_EQ(host.text(), L"z");
}

TEST_F(MessageDialogOwnerTest, ownerThatWasDisabled_staysDisabled)
{
    showFrame();
    frame->Disable();
    {
        const MessageDialogDriver driver(answerYes);
        EXPECT_EQ(ask(owner()), YES);
    }
    EXPECT_FALSE(frame->IsEnabled());
    frame->Enable();
}

TEST_F(MessageDialogOwnerTest, dialogOverAForeignOwner_isCentredOnIt)
{
    const Tests::NativeTestWindow host;
    const MessageDialog dialog(host.handle(), L"Title", L"Message", MessageDialogIcon::NONE, {});
    const Bucket region = host.region();
    const wxRect place = dialog.GetScreenRect();
    EXPECT_NEAR(place.x + place.width / 2, (region.min.x + region.max.x) / 2, 1);
    EXPECT_NEAR(place.y + place.height / 2, (region.min.y + region.max.y) / 2, 1);
}

TEST_F(MessageDialogOwnerTest, foreignOwnerDestroyed_closesTheDialog)
{
    Tests::NativeTestWindow host;
    showFrame();
    {
        const MessageDialogDriver driver([&](MessageDialog&) { host.destroy(); });
        EXPECT_EQ(ask(host.handle()), CLOSED);
    }
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, ownerOfWxWidgetsDestroyed_closesTheDialog)
{
    showFrame();
    wxWeakRef<wxFrame> other(new wxFrame(nullptr, wxID_ANY, "other"));
    other->Show();
    Tests::pumpEvents(100);
    {
        const MessageDialogDriver driver([&](MessageDialog&) { other->Destroy(); });
        EXPECT_EQ(ask(Wx::getWindowNativeHandle(other)), CLOSED);
    }
    EXPECT_TRUE(Tests::pumpUntil([&] { return !other; }));
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, ownerOfAModelessDialogDestroyed_destroysTheDialog)
{
    auto host = std::make_unique<Tests::NativeTestWindow>();
    const wxWeakRef<MessageDialog> dialog(
        new MessageDialog(host->handle(), L"Title", L"Message", MessageDialogIcon::NONE, {}));
    dialog->Show();
    Tests::pumpEvents(100);
    host.reset();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !dialog; }));
}

TEST_F(MessageDialogOwnerTest, ownerDestroyedBeneathTwoDialogs_closesBoth)
{
    showFrame();
    Tests::NativeTestWindow host;
    int inner = 0;
    {
        const MessageDialogDriver driver([&](MessageDialog& outer) {
            const MessageDialogDriver innerDriver([&](MessageDialog&) { host.destroy(); });
            inner = ask(Wx::getWindowNativeHandle(&outer));
        });
        EXPECT_EQ(ask(host.handle()), CLOSED);
    }
    EXPECT_EQ(inner, CLOSED);
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, ownerDestroyedBeneathAnotherProgramsDialog_closesBoth)
{
    showFrame();
    Tests::NativeTestWindow host;
    int inner = 0;
    {
        const MessageDialogDriver driver([&](MessageDialog& outer) {
            wxDialog dialog(&outer, wxID_ANY, "of the program");
            dialog.CallAfter([&] { host.destroy(); });
            inner = dialog.ShowModal();
        });
        EXPECT_EQ(ask(host.handle()), CLOSED);
    }
    EXPECT_EQ(inner, wxID_CANCEL);
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, ownerDestroyedBeneathADialogOfAnotherOwner_waitsForTheAnswer)
{
    showFrame();
    Tests::NativeTestWindow host;
    int inner = 0;
    {
        const MessageDialogDriver driver([&](MessageDialog&) {
            const MessageDialogDriver innerDriver([&](MessageDialog& dialog) {
                host.destroy();
                Tests::pumpEvents(300);
                answerYes(dialog);
            });
            inner = ask(owner());
        });
        EXPECT_EQ(ask(host.handle()), CLOSED);
    }
    EXPECT_EQ(inner, YES);
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, dialogClosedAfterItsModalTime_destroysItself)
{
    showFrame();
    const wxWeakRef<MessageDialog> dialog(
        new MessageDialog(owner(), L"Title", L"Message", MessageDialogIcon::NONE, {}));
    {
        const MessageDialogDriver driver([](MessageDialog& shown) { shown.Close(); });
        EXPECT_EQ(dialog->ShowModal(), CLOSED);
    }
    ASSERT_TRUE(dialog);
    dialog->Close();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !dialog; }));
}

TEST_F(MessageDialogOwnerTest, ownerThatIsGone_isNoOwner)
{
    showFrame();
    Tests::NativeTestWindow host;
    const WindowHandle gone = host.handle();
    host.destroy();
    const MessageDialogDriver driver(answerYes);
    EXPECT_EQ(ask(gone), YES);
}

TEST_F(MessageDialogOwnerTest, shownFromATimer_works)
{
    showFrame();
    int result = 0;
    wxTimer timer;
    wxEvtHandler handler;
    timer.SetOwner(&handler);
    handler.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { result = ask(owner()); });
    const MessageDialogDriver driver(answerYes);
    timer.StartOnce(1);
    EXPECT_TRUE(Tests::pumpUntil([&] { return result != 0; }));
    EXPECT_EQ(result, YES);
}

TEST_F(MessageDialogOwnerTest, shownFromAPendingEventOfAPaintHandler_works)
{
    showFrame();
    int result = 0;
    bool posted = false;
    panel->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
        event.Skip();
        if (!std::exchange(posted, true))
            panel->CallAfter([&] { result = ask(owner()); });
    });
    const MessageDialogDriver driver(answerYes);
    panel->Refresh();
    EXPECT_TRUE(Tests::pumpUntil([&] { return result != 0; }));
    EXPECT_EQ(result, YES);
}

TEST_F(MessageDialogOwnerTest, shownFromAButtonsCallback_works)
{
    int result = 0;
    auto* button = new Wx::AutoSizedButton(panel, L"Ask", 80, 24);
    button->SetSize(button->GetMinSize());
    button->setClickCallback([&] { result = ask(owner()); });
    showFrame();
    const MessageDialogDriver driver(answerYes);
    Tests::clickAt(button, wxPoint(10, 10));
    EXPECT_TRUE(Tests::pumpUntil([&] { return result != 0; }));
    EXPECT_EQ(result, YES);
    EXPECT_FALSE(button->isPressed());
}

TEST_F(MessageDialogOwnerTest, shownFromTheCallbackOfADropdownButton_works)
{
    int result = 0;
    const Function<void()> onChoice = [&] { result = ask(owner()); };
    auto* button = new Wx::DropdownButton(panel, Wx::GuiSkin::DEFAULT(), {wxID_ANY, wxID_ANY},
                                          {L"Main", L"Ask"}, wxBitmap(), wxBitmap(), {[] {}, onChoice},
                                          Wx::DropdownButton::Behavior::PUSH, true);
    button->SetSize(100, 30);
    showFrame();
    const MessageDialogDriver driver(answerYes);
    Tests::pressMouseAt(button, wxPoint(10, 10));
    Tests::pumpEvents(400);
    Tests::moveMouse(button, wxPoint(10, 45));
    Tests::releaseMouse();
    EXPECT_TRUE(Tests::pumpUntil([&] { return result != 0; }));
    EXPECT_EQ(result, YES);
    Tests::pumpEvents(100);
    expectUsable();
}

TEST_F(MessageDialogOwnerTest, shownWhenAComboBoxIsChosenFrom_works)
{
    int result = 0;
    auto* box = new Wx::ComboBox(
        panel, wxID_ANY, 120, [&](int) { result = ask(owner()); }, {}, true);
    const Wx::ComboBox::Item items[] = {{L"Red", 1, {}}, {L"Blue", 2, {}}};
    box->setData(items);
    box->SetSize(120, 30);
    showFrame();
    const MessageDialogDriver driver(answerYes);
    Tests::clickAt(box, wxPoint(10, 10));
    Tests::pumpEvents(300);
    Tests::clickAt(box, wxPoint(10, 60));
    EXPECT_TRUE(Tests::pumpUntil([&] { return result != 0; }));
    EXPECT_EQ(result, YES);
    Tests::pumpEvents(100);
    expectUsable();
}
