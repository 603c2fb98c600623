// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MessageDialog.h"

#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "support/FrameFixture.h"
#include "support/MessageDialogDriver.h"

#include <wx/textctrl.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::MessageDialogDriver;
using Wx::MessageDialog;
using Wx::MessageDialogButton;
using Wx::MessageDialogControl;
using Wx::MessageDialogIcon;

namespace {

constexpr int CLOSED = 16000;

using Controls = Stack<const MessageDialogControl*>;

const Controls OK_CANCEL{&MessageDialogButton::OK, &MessageDialogButton::CANCEL};
const Controls YES_NO{&MessageDialogButton::YES, &MessageDialogButton::NO};

/// Sends the dialog a key as wxWidgets does before the window in focus receives the key. Returns false if the
/// dialog passes the key on.
bool takesKey(MessageDialog& dialog, int key)
{
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = key;
    event.SetEventObject(&dialog);
    return dialog.HandleWindowEvent(event);
}

struct MessageDialogTest : Tests::FrameFixture
{
    MessageDialogTest()
    {
        field->SetFocus();
        showFrame();
        field->SetFocus();
        EXPECT_TRUE(Tests::pumpUntil([this] { return field->HasFocus(); }));
    }

    /// Shows a dialog with these controls, and returns its result after `act` has operated the dialog.
    int show(const Controls& controls, MessageDialogDriver::Act act,
             MessageDialogIcon icon = MessageDialogIcon::QUESTION) const
    {
        const MessageDialogDriver driver(std::move(act));
        const int result = Wx::Detail::showMessageDialogImpl(Wx::getWindowNativeHandle(frame), L"Save",
                                                             L"Save the picture?", icon, controls);
        expectAsBefore();
        return result;
    }

    int showAndType(const Controls& controls, int key) const
    {
        return show(controls, [key](MessageDialog&) { Tests::typeKey(key); });
    }

    /// Nothing is disabled, and the focus is back.
    void expectAsBefore() const
    {
        EXPECT_TRUE(frame->IsEnabled());
        EXPECT_TRUE(Tests::pumpUntil([this] { return field->HasFocus(); })) << "the focus is not back";
        Tests::typeKey('x');
        EXPECT_EQ(field->GetValue(), "x");
        field->Clear();
    }

    wxTextCtrl* field = new wxTextCtrl(panel, wxID_ANY);
};

} // namespace

TEST_F(MessageDialogTest, clickOnAButton_returnsItsIdentifier)
{
    const auto click = [](std::size_t index) {
        return [index](MessageDialog& dialog) { Tests::clickButton(dialog, index); };
    };
    EXPECT_EQ(show(OK_CANCEL, click(0)), 16002);
    EXPECT_EQ(show(OK_CANCEL, click(1)), 16003);
    EXPECT_EQ(show(YES_NO, click(0)), 16004);
    EXPECT_EQ(show(YES_NO, click(1)), 16005);
}

TEST_F(MessageDialogTest, closedFrame_returnsFrameCloseListedOrNot)
{
    const auto close = [](MessageDialog& dialog) { dialog.Close(); };
    EXPECT_EQ(show(OK_CANCEL, close), CLOSED);
    EXPECT_EQ(show(YES_NO, close), CLOSED);
    EXPECT_EQ(show({&MessageDialogButton::OK}, close), CLOSED);
}

TEST_F(MessageDialogTest, escapeInOkCancel_closes)
{
    EXPECT_EQ(showAndType(OK_CANCEL, WXK_ESCAPE), CLOSED);
}

TEST_F(MessageDialogTest, escapeInYesNo_doesNothing)
{
    EXPECT_EQ(show(YES_NO,
                   [](MessageDialog& dialog) {
                       Tests::typeKey(WXK_ESCAPE);
                       EXPECT_TRUE(dialog.IsShown());
                       Tests::typeKey('N');
                   }),
              16005);
}

TEST_F(MessageDialogTest, altF4InYesNo_closes)
{
    EXPECT_EQ(show(YES_NO, [](MessageDialog&) { Tests::typeKey(WXK_F4, wxMOD_ALT); }), CLOSED);
}

TEST_F(MessageDialogTest, keysOfTheButtons_clickThem)
{
    EXPECT_EQ(showAndType(YES_NO, 'Y'), 16004);
    EXPECT_EQ(showAndType(YES_NO, 'N'), 16005);
    EXPECT_EQ(showAndType(OK_CANCEL, WXK_RETURN), 16002);
    const auto typeOnTheKeypad = [](MessageDialog& dialog) {
        // The simulator of wxWidgets has no keypad on Windows.
        EXPECT_TRUE(takesKey(dialog, WXK_NUMPAD_ENTER));
    };
    EXPECT_EQ(show(OK_CANCEL, typeOnTheKeypad), 16002);
}

TEST_F(MessageDialogTest, otherKeys_doNothingAndArePassedOn)
{
    EXPECT_EQ(show(YES_NO,
                   [](MessageDialog& dialog) {
                       Tests::typeKey('A');
                       Tests::typeKey(WXK_RETURN);
                       Tests::typeKey(WXK_TAB);
                       EXPECT_TRUE(dialog.IsShown());
                       EXPECT_FALSE(takesKey(dialog, 'A'));
                       EXPECT_FALSE(takesKey(dialog, WXK_RETURN));
                       EXPECT_TRUE(takesKey(dialog, 'Y'));
                   }),
              16004);
}

TEST_F(MessageDialogTest, twoControlsWithOneKey_theLaterWins)
{
    const MessageDialogButton first(L"First", 'Q');
    const MessageDialogButton second(L"Second", {'P', 'Q'});
    EXPECT_EQ(showAndType({&first, &second}, 'Q'), second.m_controlId);
    EXPECT_EQ(showAndType({&second, &first}, 'Q'), first.m_controlId);
    EXPECT_EQ(showAndType({&second, &first}, 'P'), second.m_controlId);
}

TEST_F(MessageDialogTest, controlThatIsNoButton_hasKeysOnly)
{
    const MessageDialogControl help({WXK_F1});
    EXPECT_EQ(show({&MessageDialogButton::OK, &help},
                   [](MessageDialog& dialog) {
                       EXPECT_EQ(Tests::buttonsOf(dialog).size(), 1u);
                       Tests::typeKey(WXK_F1);
                   }),
              help.m_controlId);
    EXPECT_GE(help.m_controlId, 16006);
}

TEST_F(MessageDialogTest, disabledButton_isVisibleAndInert)
{
    MessageDialogButton disabled(L"Overwrite", 'O');
    disabled.m_enabled = false;
    EXPECT_EQ(show({&disabled, &MessageDialogButton::OK},
                   [](MessageDialog& dialog) {
                       EXPECT_TRUE(Tests::buttonsOf(dialog)[0]->IsShownOnScreen());
                       EXPECT_FALSE(Tests::buttonsOf(dialog)[0]->IsEnabled());
                       EXPECT_TRUE(Tests::buttonsOf(dialog)[1]->IsEnabled());
                       Tests::clickButton(dialog, 0);
                       Tests::typeKey('O');
                       EXPECT_TRUE(dialog.IsShown());
                       Tests::clickButton(dialog, 1);
                   }),
              16002);
}

TEST_F(MessageDialogTest, outsideClose_isAcceptedAndDoesNothing)
{
    EXPECT_EQ(show({&MessageDialogControl::OUTSIDE_CLOSE, &MessageDialogButton::OK},
                   [this](MessageDialog& dialog) {
                       Tests::clickAt(frame, wxPoint(2, 2));
                       EXPECT_TRUE(dialog.IsShown());
                       dialog.Raise();
                       Tests::pumpUntil([&] { return dialog.IsActive(); });
                       Tests::typeKey(WXK_RETURN);
                   }),
              16002);
}

TEST_F(MessageDialogTest, clickReleasedBesideTheButton_keepsTheDialog)
{
    EXPECT_EQ(show(OK_CANCEL,
                   [](MessageDialog& dialog) {
                       const wxWindow* const ok = Tests::buttonsOf(dialog)[0];
                       Tests::pressMouseAt(ok, wxPoint(5, 5));
                       Tests::moveMouse(ok, wxPoint(-20, 5));
                       Tests::releaseMouse();
                       EXPECT_TRUE(dialog.IsShown());
                       Tests::typeKey(WXK_ESCAPE);
                   }),
              CLOSED);
}

TEST_F(MessageDialogTest, severalEnds_theFirstCounts)
{
    EXPECT_EQ(show(OK_CANCEL,
                   [](MessageDialog& dialog) {
                       Tests::buttonsOf(dialog)[1]->doClick(wxPoint(1, 1));
                       Tests::buttonsOf(dialog)[0]->doClick(wxPoint(1, 1));
                       dialog.Close();
                   }),
              16003);
}

TEST_F(MessageDialogTest, showFunctions_listTheirControls)
{
    const WindowHandle owner = Wx::getWindowNativeHandle(frame);
    const auto type = [](int key, Array<wxString> labels, bool hasCloseBox) {
        return [=](MessageDialog& dialog) {
            Array<wxString> shown;
            for (const Wx::AutoSizedButton* button : Tests::buttonsOf(dialog))
                shown.push_back(button->GetLabel());
            EXPECT_EQ(shown, labels);
            EXPECT_EQ(dialog.HasFlag(wxCLOSE_BOX), hasCloseBox);
            EXPECT_TRUE(dialog.HasFlag(wxSYSTEM_MENU));
            Tests::typeKey(key);
        };
    };
    constexpr auto ICON = MessageDialogIcon::INFO;
    {
        const MessageDialogDriver driver(type(WXK_RETURN, {L"OK"}, true));
        EXPECT_TRUE(Wx::showOkDialog(owner, L"Title", L"Message", ICON));
    }
    {
        const MessageDialogDriver driver(type(WXK_ESCAPE, {L"OK"}, true));
        EXPECT_FALSE(Wx::showOkDialog(owner, L"Title", L"Message", ICON));
    }
    {
        const MessageDialogDriver driver(type(WXK_RETURN, {L"OK", L"Cancel"}, true));
        EXPECT_TRUE(Wx::showOkCancelDialog(owner, L"Title", L"Message", ICON));
    }
    {
        const MessageDialogDriver driver(type(WXK_ESCAPE, {L"OK", L"Cancel"}, true));
        EXPECT_FALSE(Wx::showOkCancelDialog(owner, L"Title", L"Message", ICON));
    }
    {
        const MessageDialogDriver driver(type('Y', {L"Yes", L"No"}, false));
        EXPECT_TRUE(Wx::showYesNoDialog(owner, L"Title", L"Message", ICON));
    }
    {
        const MessageDialogDriver driver(type('N', {L"Yes", L"No"}, false));
        EXPECT_FALSE(Wx::showYesNoDialog(owner, L"Title", L"Message", ICON));
    }
}

TEST_F(MessageDialogTest, withoutAnOwner_worksAndGivesTheFocusBack)
{
    const MessageDialogDriver driver([](MessageDialog&) { Tests::typeKey(WXK_RETURN); });
    EXPECT_TRUE(Wx::showOkDialog({}, L"Title", L"Message", MessageDialogIcon::NONE));
    expectAsBefore();
}

TEST_F(MessageDialogTest, emptyEverything_canBeClosed)
{
    const MessageDialogDriver driver([](MessageDialog& dialog) {
        EXPECT_TRUE(dialog.HasFlag(wxCAPTION));
        EXPECT_TRUE(Tests::buttonsOf(dialog).empty());
        EXPECT_EQ(Tests::iconOf(dialog), nullptr);
        EXPECT_EQ(Tests::messageOf(dialog), "");
        dialog.Close();
    });
    EXPECT_EQ(Wx::Detail::showMessageDialogImpl({}, {}, {}, MessageDialogIcon::NONE, {}), CLOSED);
    expectAsBefore();
}

TEST_F(MessageDialogTest, iconOutsideTheEnumeration_isNone)
{
    for (const int icon : {99, -1, 6}) {
        show(
            OK_CANCEL,
            [](MessageDialog& dialog) {
                EXPECT_EQ(Tests::iconOf(dialog), nullptr);
                Tests::typeKey(WXK_ESCAPE);
            },
            static_cast<MessageDialogIcon>(icon));
    }
}

TEST_F(MessageDialogTest, dialogOfADialog_returnsToTheFirst)
{
    int inner = 0;
    EXPECT_EQ(show(OK_CANCEL,
                   [&](MessageDialog& dialog) {
                       {
                           const MessageDialogDriver driver([](MessageDialog&) { Tests::typeKey('N'); });
                           inner = Wx::Detail::showMessageDialogImpl(Wx::getWindowNativeHandle(&dialog),
                                                                     L"Inner", L"Sure?",
                                                                     MessageDialogIcon::WARNING, YES_NO);
                       }
                       EXPECT_TRUE(dialog.IsShown());
                       EXPECT_TRUE(dialog.IsEnabled());
                       EXPECT_TRUE(Tests::pumpUntil([&] { return dialog.IsActive(); }));
                       Tests::typeKey(WXK_RETURN);
                   }),
              16002);
    EXPECT_EQ(inner, 16005);
}

TEST_F(MessageDialogTest, modelessDialog_takesTheIdentifierAsReturnCodeAndDestroysItself)
{
    wxWeakRef<MessageDialog> dialog(new MessageDialog(Wx::getWindowNativeHandle(frame), L"Title", L"Message",
                                                      MessageDialogIcon::INFO, OK_CANCEL));
    dialog->Show();
    EXPECT_TRUE(Tests::pumpUntil([&] { return dialog->IsActive(); }));
    EXPECT_FALSE(dialog->IsModal());
    EXPECT_TRUE(frame->IsEnabled());
    Tests::buttonsOf(*dialog)[1]->doClick(wxPoint(1, 1));
    EXPECT_EQ(dialog->GetReturnCode(), 16003);
    EXPECT_TRUE(Tests::pumpUntil([&] { return !dialog; }));
}

TEST_F(MessageDialogTest, modelessDialog_thatIsClosed_returnsFrameClose)
{
    wxWeakRef<MessageDialog> dialog(
        new MessageDialog({}, L"Title", L"Message", MessageDialogIcon::INFO, YES_NO));
    dialog->Show();
    Tests::pumpEvents();
    dialog->Close();
    EXPECT_EQ(dialog->GetReturnCode(), CLOSED);
    EXPECT_TRUE(Tests::pumpUntil([&] { return !dialog; }));
}
