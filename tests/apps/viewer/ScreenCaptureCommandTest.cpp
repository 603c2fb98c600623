// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenCaptureCommand.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/ScreenOverlay.h"
#include "support/FakeScreen.h"
#include "support/ViewerFixture.h"

#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

using namespace Nolvex;
using namespace std::chrono_literals;
using Tests::coordinates;
using Tests::pumpUntil;
using Viewer::messageOf;
using Viewer::ScreenCaptureCommand;
using Wx::ScreenCaptureFailure;

namespace {

struct ScreenCaptureCommandTest : testing::Test
{
    Tests::FakeScreen screen;
    Bucket region;
    int count = 0;
    Optional<ScreenCaptureCommand::Result> result;
    std::unique_ptr<ScreenCaptureCommand> command = std::make_unique<ScreenCaptureCommand>(
        [this](const Bucket& wanted, std::chrono::milliseconds limit, auto done) {
            region = wanted;
            // A part of the fake display that does not begin at its corner.
            return screen.request({{-1, -1}, {39, 29}}, limit, std::move(done));
        },
        [this](const ScreenCaptureCommand::Result& captured) {
            ++count;
            result = captured;
        });

    void expectAnswer()
    {
        ASSERT_TRUE(pumpUntil([this] { return count > 0; }));
        EXPECT_EQ(count, 1);
        EXPECT_FALSE(command->isRunning());
    }
};

struct ViewerCaptureTest : Tests::ViewerFixture
{
    Tests::FakeScreen screen;

    // Shows the window with a picture that has a file.
    void showViewer()
    {
        frame = new Viewer::ViewerFrame(coordinates(60, 40), Io::Path(L"test"),
                                        [this](const Bucket&, std::chrono::milliseconds limit, auto done) {
                                            return screen.request({{0, 0}, {40, 30}}, limit, std::move(done));
                                        });
        view = Tests::findIn<Viewer::ImageView>(frame);
        log = Tests::findIn<Wx::TextCtrl>(frame);
        frame->Show();
        ASSERT_TRUE(pumpUntil([this] { return frame->wasPainted(); }));
    }

    void askByCommand()
    {
        command(Viewer::CAPTURE_SCREEN);
        ASSERT_TRUE(pumpUntil([this] { return screen.asked > 0; }));
    }

    void expectComplaint(const wxString& message) const
    {
        EXPECT_TRUE(pumpUntil([&] { return lastMessage() == message; })) << lastMessage();
        EXPECT_TRUE(frame->isLogShown());
        EXPECT_EQ(frame->GetTitle(), L"test (60 \u00D7 40)");
    }
};

} // namespace

TEST_F(ScreenCaptureCommandTest, asksForAllDisplaysWithTimeForADecision)
{
    command->start();
    EXPECT_FALSE(region.isEmpty());
    EXPECT_EQ(region, Wx::getDesktopRegion());
    EXPECT_EQ(screen.limit, 60s);
    EXPECT_TRUE(command->isRunning());
}

TEST_F(ScreenCaptureCommandTest, picture_hasItsTopRowLastAndIsTransparentWhereNoDisplayIs)
{
    command->start();
    screen.answer(Tests::desktopPicture({40, 30}));
    expectAnswer();
    ASSERT_TRUE(*result);
    const Image& image = (**result)->image();
    EXPECT_EQ((**result)->name(), L"Unsaved picture of the screen");
    EXPECT_EQ((**result)->size(), (Pixel{40, 30}));
    EXPECT_EQ(image.getRgba(5, 29).a, 0.0f) << "the top row";
    EXPECT_EQ(image.getRgba(0, 3).a, 0.0f) << "the left column";
    const Rgb inside = image.getRgba(39, 0);
    EXPECT_EQ(std::lround(inside.r * 255), 38);
    EXPECT_EQ(std::lround(inside.g * 255), 28);
    EXPECT_EQ(std::lround(inside.b * 255), 7);
    EXPECT_EQ(inside.a, 1.0f);
}

TEST_F(ScreenCaptureCommandTest, failures_haveMessagesOfTheirOwn)
{
    Array<String> messages;
    for (const ScreenCaptureFailure failure :
         {ScreenCaptureFailure::REFUSED, ScreenCaptureFailure::UNAVAILABLE, ScreenCaptureFailure::TIMED_OUT,
          ScreenCaptureFailure::FAILED, ScreenCaptureFailure::TOO_LARGE}) {
        count = 0;
        command->start();
        screen.answer(Unexpected{failure});
        expectAnswer();
        ASSERT_FALSE(*result);
        EXPECT_EQ(result->error(), messageOf(failure));
        EXPECT_EQ(std::ranges::count(messages, result->error()), 0);
        messages.push_back(result->error());
    }
}

TEST_F(ScreenCaptureCommandTest, secondStart_asksNothing)
{
    command->start();
    command->start();
    command->startSoon();
    Tests::pumpEvents(400);
    EXPECT_EQ(screen.asked, 1);
}

TEST_F(ScreenCaptureCommandTest, startSoon_waitsForTheMenu)
{
    command->startSoon();
    EXPECT_TRUE(command->isRunning());
    EXPECT_EQ(screen.asked, 0);
    EXPECT_TRUE(pumpUntil([this] { return screen.asked == 1; }));
    EXPECT_TRUE(command->isRunning());
}

TEST_F(ScreenCaptureCommandTest, cancelled_asksNothingAndAnswersNothing)
{
    command->startSoon();
    command->cancel();
    EXPECT_FALSE(command->isRunning());
    Tests::pumpEvents(400);
    EXPECT_EQ(screen.asked, 0);
    command->start();
    screen.answer(Tests::desktopPicture({40, 30}));
    command->cancel();
    Tests::pumpEvents(50);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(screen.withdrawn, 1);
}

TEST_F(ScreenCaptureCommandTest, destroyed_withdrawsTheQuestion)
{
    command->start();
    command.reset();
    EXPECT_EQ(screen.withdrawn, 1);
}

TEST_F(ScreenCaptureCommandTest, answer_mayDestroyTheCommand)
{
    std::unique_ptr<ScreenCaptureCommand> own;
    bool isAnswered = false;
    own = std::make_unique<ScreenCaptureCommand>(
        [this](const Bucket& wanted, std::chrono::milliseconds limit, auto done) {
            return screen.request(wanted, limit, std::move(done));
        },
        [&](const ScreenCaptureCommand::Result& captured) {
            own.reset();
            isAnswered = !captured;
        });
    own->start();
    screen.answer(Unexpected{ScreenCaptureFailure::REFUSED});
    EXPECT_TRUE(pumpUntil([&] { return isAnswered; }));
}

TEST_F(ViewerCaptureTest, window_canBeUsedWhileTheDesktopIsAsked)
{
    showViewer();
    askByCommand();
    EXPECT_TRUE(frame->openPicture(Tests::testPicture(L"pattern.png")));
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"pattern.png"));
    screen.answer(Tests::desktopPicture({40, 30}));
    EXPECT_TRUE(pumpUntil([&] { return frame->GetTitle().StartsWith(L"Unsaved"); }));
    EXPECT_EQ(lastMessage(), L"Captured the screen, 40 \u00D7 30 pixels.");
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(ViewerCaptureTest, failure_isToldAndThePictureStays)
{
    showViewer();
    for (const ScreenCaptureFailure failure :
         {ScreenCaptureFailure::REFUSED, ScreenCaptureFailure::TIMED_OUT}) {
        frame->showLog(false);
        screen.asked = 0;
        askByCommand();
        screen.answer(Unexpected{failure});
        expectComplaint(messageOf(failure).c_str());
    }
}

TEST_F(ViewerCaptureTest, secondCommand_isToldThatTheDesktopIsStillAsked)
{
    showViewer();
    askByCommand();
    command(Viewer::CAPTURE_SCREEN);
    expectComplaint(L"The desktop is still being asked for a picture of the screen.");
    EXPECT_EQ(screen.asked, 1);
}

TEST_F(ViewerCaptureTest, closedWindow_withdrawsTheQuestion)
{
    showViewer();
    askByCommand();
    frame->Close();
    EXPECT_EQ(screen.withdrawn, 1);
    screen.answer(Tests::desktopPicture({40, 30}));
    const wxWeakRef<Viewer::ViewerFrame> window(std::exchange(frame, nullptr));
    EXPECT_TRUE(pumpUntil([&] { return !window; }));
}

TEST_F(ViewerCaptureTest, hiddenWindow_appearsWithTheAnswer)
{
    showViewer();
    frame->Hide();
    frame->captureScreen();
    Tests::pumpEvents(50);
    EXPECT_FALSE(frame->IsShown());
    screen.answer(Tests::desktopPicture({40, 30}));
    EXPECT_TRUE(pumpUntil([&] { return frame->IsShown(); }));
}

TEST_F(ViewerCaptureTest, regionThatTheUserChooses_isShownAsAnUnsavedPicture)
{
    showViewer();
    command(Viewer::CAPTURE_REGION);
    ASSERT_TRUE(pumpUntil([this] { return screen.asked > 0; }));
    screen.answer(Tests::desktopPicture({40, 30}));
    wxWeakRef<Viewer::ScreenOverlay> overlay;
    ASSERT_TRUE(pumpUntil([&] {
        for (wxWindow* window : frame->GetChildren()) {
            if (window->IsTopLevel())
                overlay = Tests::findIn<Viewer::ScreenOverlay>(window);
        }
        return overlay != nullptr && overlay->HasFocus();
    }));
    EXPECT_EQ(frame->GetTitle(), L"test (60 \u00D7 40)");
    Tests::pumpEvents(200);
    wxUIActionSimulator().Char(WXK_LEFT);
    Tests::pumpEvents(50);
    wxUIActionSimulator().Char(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([this] {
        return frame->GetTitle() == L"Unsaved picture of the screen (20 \u00D7 15)";
    })) << frame->GetTitle();
    EXPECT_EQ(lastMessage(), L"Captured the screen, 20 \u00D7 15 pixels.");
    EXPECT_TRUE(pumpUntil([&] { return !overlay; }));
}

TEST_F(ViewerCaptureTest, regionThatIsNotChosen_changesNothing)
{
    showViewer();
    command(Viewer::CAPTURE_REGION);
    ASSERT_TRUE(pumpUntil([this] { return screen.asked > 0; }));
    screen.answer(Tests::desktopPicture({40, 30}));
    const auto overlay = [this] {
        Viewer::ScreenOverlay* found = nullptr;
        for (wxWindow* window : frame->GetChildren()) {
            if (window->IsTopLevel())
                found = Tests::findIn<Viewer::ScreenOverlay>(window);
        }
        return found;
    };
    ASSERT_TRUE(pumpUntil([&] { return overlay() != nullptr && overlay()->HasFocus(); }));
    Tests::pumpEvents(200);
    wxUIActionSimulator().Char(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return overlay() == nullptr; }));
    EXPECT_EQ(frame->GetTitle(), L"test (60 \u00D7 40)");
    EXPECT_FALSE(frame->isLogShown());
}
