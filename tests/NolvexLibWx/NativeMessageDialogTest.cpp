// SPDX-License-Identifier: MIT
// Message dialogs of threads other than the main thread.
#include "NolvexLibWx/MessageDialog.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/NativeWindows.h"
#include "support/DialogRobot.h"
#include "support/FrameFixture.h"
#include "support/NativeDialog.h"
#include "support/NativeTestWindow.h"
#include "support/NativeTraits.h"
#include "support/StopLine.h"

#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace Nolvex;
using Tests::DialogRobot;
using Tests::stopLine;
using Wx::MessageDialogButton;
using Wx::MessageDialogControl;
using Wx::MessageDialogIcon;

namespace {

constexpr int CLOSED = 16000;

using Controls = Stack<const MessageDialogControl*>;

const Controls OK_CANCEL{&MessageDialogButton::OK, &MessageDialogButton::CANCEL};
const Controls YES_NO{&MessageDialogButton::YES, &MessageDialogButton::NO};

int show(WindowHandle owner, MessageDialogIcon icon, const Controls& controls)
{
    return Wx::Detail::showMessageDialogImpl(owner, L"Title", L"a\tb", icon, controls);
}

/// Answers native message dialogs instead of the user, before they reach the screen.
class Answers : private wxModalDialogHook
{
public:
    using Answer = std::function<int(wxMessageDialog&)>;

    explicit Answers(Answer answer) : m_answer(std::move(answer)) { Register(); }

    ~Answers() override { Unregister(); }

private:
    int Enter(wxDialog* dialog) override
    {
        auto* const native = dynamic_cast<wxMessageDialog*>(dialog);
        return native != nullptr ? m_answer(*native) : wxID_NONE;
    }

    Answer m_answer;
};

struct NativeMessageDialogTest : Tests::FrameFixture
{
    NativeMessageDialogTest() { showFrame(); }

    /// Runs the function on another thread, while this thread processes events until the function returns. A
    /// robot goes through the steps meanwhile, and ends the dialogs of a function that does not return.
    static void runOnThread(const std::function<void()>& function, std::vector<DialogRobot::Step> steps = {})
    {
        constexpr int LIMIT = 60'000; // milliseconds; the robot gives up before
        const DialogRobot robot(std::move(steps));
        std::atomic<bool> ended = false;
        std::thread thread([&] {
            function();
            ended = true;
        });
        EXPECT_TRUE(Tests::pumpUntil([&] { return ended.load(); }, LIMIT));
        thread.join();
    }

    /// Runs `action` as soon as the dialog takes the keys.
    static DialogRobot::Step inDialog(std::function<void()> action)
    {
        return {"a native dialog has the focus",
                [] { return static_cast<bool>(Tests::activeNativeDialog()); }, std::move(action)};
    }

    static DialogRobot::Step pressEscape()
    {
        return inDialog([] { wxUIActionSimulator().Char(WXK_ESCAPE); });
    }

    /// Shows a dialog that the system puts on the screen.
    static int showReal(WindowHandle owner, const Controls& controls, std::vector<DialogRobot::Step> steps)
    {
        int result = 0;
        runOnThread([&] { result = show(owner, MessageDialogIcon::QUESTION, controls); }, std::move(steps));
        return result;
    }

    int showOnThread(MessageDialogIcon icon, const Controls& controls, WindowHandle owner = {}) const
    {
        int result = 0;
        runOnThread([&] { result = show(owner, icon, controls); });
        return result;
    }
};

} // namespace

TEST_F(NativeMessageDialogTest, otherThread_getsTheNativeDialogAndItsResult)
{
    const Answers answers([](wxMessageDialog& dialog) {
        EXPECT_EQ(dialog.GetMessage(), "a    b");
        EXPECT_EQ(dialog.GetCaption(), "Title");
        EXPECT_EQ(dialog.GetMessageDialogStyle(), 0x8401 | 0xA);
        return wxID_YES;
    });
    EXPECT_EQ(showOnThread(MessageDialogIcon::QUESTION, YES_NO), 16004);
}

TEST_F(NativeMessageDialogTest, showFunctions_onOtherThreads_tellTheAnswer)
{
    int answer = wxID_OK;
    const Answers answers([&](wxMessageDialog&) { return answer; });
    const auto ask = [&](auto* function, int given) {
        bool result = false;
        answer = given;
        runOnThread([&] { result = function({}, L"Title", L"Message", MessageDialogIcon::INFO); });
        return result;
    };
    EXPECT_TRUE(ask(Wx::showOkDialog, wxID_OK));
    EXPECT_FALSE(ask(Wx::showOkDialog, wxID_CANCEL));
    EXPECT_TRUE(ask(Wx::showOkCancelDialog, wxID_OK));
    EXPECT_FALSE(ask(Wx::showOkCancelDialog, wxID_CANCEL));
    EXPECT_TRUE(ask(Wx::showYesNoDialog, wxID_YES));
    EXPECT_FALSE(ask(Wx::showYesNoDialog, wxID_NO));
    EXPECT_FALSE(ask(Wx::showYesNoDialog, wxID_CANCEL)) << "Escape never means yes";
}

TEST_F(NativeMessageDialogTest, fatalErrors_areThrownOnTheCallingThread)
{
    const Answers answers([](wxMessageDialog&) { return wxID_HELP; });
    int icon = 0;
    int result = 0;
    runOnThread([&] {
        icon = stopLine([] { show({}, MessageDialogIcon::SUCCESS, YES_NO); });
        result = stopLine([] { show({}, MessageDialogIcon::INFO, YES_NO); });
    });
    EXPECT_EQ(icon, 354);
    EXPECT_EQ(result, 389);
}

TEST_F(NativeMessageDialogTest, owner_isDisabledMeanwhile)
{
    auto* field = new wxTextCtrl(panel, wxID_ANY);
    field->SetFocus();
    EXPECT_TRUE(Tests::pumpUntil([&] { return field->HasFocus(); }));
    bool disabled = false;
    const Answers answers([&](wxMessageDialog& dialog) {
        disabled = !frame->IsEnabled();
        EXPECT_NE(dialog.GetParent(), nullptr);
        return wxID_OK;
    });
    EXPECT_EQ(showOnThread(MessageDialogIcon::INFO, OK_CANCEL, Wx::getWindowNativeHandle(frame)), 16002);
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(frame->IsEnabled());
    EXPECT_TRUE(Tests::pumpUntil([&] { return field->HasFocus(); })) << "the focus is back";
}

TEST_F(NativeMessageDialogTest, severalThreads_areServedOneAfterAnother)
{
    constexpr int THREADS = 6;
    constexpr int DIALOGS = 5;
    std::atomic<int> shown = 0;
    std::atomic<int> answered = 0;
    const Answers answers([&](wxMessageDialog&) {
        EXPECT_EQ(++shown, 1);
        std::this_thread::yield();
        --shown;
        return wxID_NO;
    });
    const auto ask = [&] {
        for (int i = 0; i < DIALOGS; ++i) {
            if (show({}, MessageDialogIcon::WARNING, YES_NO) == 16005)
                ++answered;
        }
    };
    runOnThread([&] {
        Array<std::thread> threads;
        for (int i = 0; i < THREADS; ++i)
            threads.emplace_back(ask);
        for (std::thread& thread : threads)
            thread.join();
    });
    EXPECT_EQ(answered, THREADS * DIALOGS);
}

TEST_F(NativeMessageDialogTest, messageOfAMegabyte_isCutOff)
{
    const Answers answers([](wxMessageDialog& dialog) {
        EXPECT_EQ(dialog.GetMessage(), wxString(L'x', 10'000) + L'\u2026');
        return wxID_OK;
    });
    runOnThread([] {
        EXPECT_TRUE(Wx::showOkDialog({}, L"Title", std::wstring(1'048'576, L'x'), MessageDialogIcon::INFO));
    });
}

// Windows stores the last character as two.
TEST_F(NativeMessageDialogTest, messageThatIsCutOff_hasNoHalfCharacter)
{
    const wxString start(L'x', 9'999);
    const std::wstring emoji = L"\U0001F600";
    const Answers answers([&](wxMessageDialog& dialog) {
        const wxString visible = emoji.size() == 1 ? start + emoji : start;
        EXPECT_EQ(dialog.GetMessage(), visible + L'\u2026');
        return wxID_OK;
    });
    const String message = (start + emoji + "yy").ToStdWstring();
    runOnThread([&] { EXPECT_TRUE(Wx::showOkDialog({}, L"Title", message, MessageDialogIcon::INFO)); });
}

TEST_F(NativeMessageDialogTest, realDialog_isAnsweredByTheUser)
{
    EXPECT_EQ(showReal(Wx::getWindowNativeHandle(frame), OK_CANCEL, {pressEscape()}), 16003);
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(NativeMessageDialogTest, ownerThatIsGone_isNoOwner)
{
    Tests::NativeTestWindow host;
    const WindowHandle gone = host.handle();
    host.destroy();
    EXPECT_EQ(showReal(gone, OK_CANCEL, {pressEscape()}), 16003);
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(NativeMessageDialogTest, ownerInsideAWindow_standsForTheWindow)
{
    const Tests::NativeTestWindow host;
    WindowHandle noted;
    EXPECT_EQ(showReal(host.field(), OK_CANCEL, {inDialog([&] {
                           noted = Wx::getOwnerAsNativeHandle(Tests::activeNativeDialog());
                           wxUIActionSimulator().Char(WXK_ESCAPE);
                       })}),
              16003);
    EXPECT_EQ(noted, host.handle());
}

// Where the main thread shows the dialog, the thread waits while the main thread does other things.
TEST_F(NativeMessageDialogTest, ownerDestroyedWhileTheThreadWaits_neverMeansYes)
{
    for (const Controls& controls : {OK_CANCEL, YES_NO}) {
        auto host = std::make_unique<Tests::NativeTestWindow>();
        std::atomic<int> result = 0;
        const DialogRobot robot({});
        std::thread thread(
            [&, owner = host->handle()] { result = show(owner, MessageDialogIcon::QUESTION, controls); });
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        wxTimer closing;
        closing.Bind(wxEVT_TIMER, [](wxTimerEvent&) { Tests::endNativeDialogs(); });
        closing.Start(300);
        host.reset();
        EXPECT_TRUE(Tests::pumpUntil([&] { return result != 0; }, 60'000));
        thread.join();
        EXPECT_NE(result, 16002);
        EXPECT_NE(result, 16004);
        EXPECT_TRUE(frame->IsEnabled());
    }
}

TEST_F(NativeMessageDialogTest, ownerDestroyedWhileTheDialogIsUp_countsAsClosedFrame)
{
    for (const Controls& controls : {Controls{&MessageDialogButton::OK}, OK_CANCEL, YES_NO}) {
        Tests::NativeTestWindow host;
        EXPECT_EQ(showReal(host.handle(), controls, {inDialog([&] {
                               host.destroy();
                               // Windows may leave the dialog to the user, since it is another thread's.
                               if (!Tests::needsMainThreadForDialogs())
                                   Tests::endNativeDialogs();
                           })}),
                  CLOSED);
        EXPECT_TRUE(frame->IsEnabled());
    }
}
