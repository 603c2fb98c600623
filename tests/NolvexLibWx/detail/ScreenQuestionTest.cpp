// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ScreenQuestion.h"

#include "../CapturedRegions.h"
#include "NolvexLib/Optional.h"
#include "support/Events.h"
#include "support/ExceptionWatch.h"
#include "support/FakeScreen.h"
#include "support/NoApplication.h"
#include "support/PictureWindow.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <utility>

using namespace Nolvex;
using namespace std::chrono_literals;
using Tests::fromBytes;
using Wx::ScreenCaptureFailure;
using Wx::ScreenCaptureRequest;
using Wx::ScreenCaptureResult;
using Wx::Detail::ScreenQuestion;

namespace {

struct ScreenQuestionTest : testing::Test
{
    Tests::FakeScreen desktop;
    int count = 0;
    Optional<ScreenCaptureResult> result;

    ScreenQuestion::Done receiver()
    {
        return [this](ScreenCaptureResult answer) {
            ++count;
            result = std::move(answer);
        };
    }

    ScreenCaptureRequest open(const Bucket& region, ScreenQuestion::Done done)
    {
        return desktop.request(region, 7s, std::move(done));
    }

    ScreenCaptureRequest open(const Bucket& region = {{0, 0}, {40, 30}}) { return open(region, receiver()); }

    void expectAnswered()
    {
        ASSERT_TRUE(Tests::pumpUntil([this] { return count > 0; }));
        Tests::pumpEvents(20);
        EXPECT_EQ(count, 1);
    }

    void expectFailure(ScreenCaptureFailure failure)
    {
        expectAnswered();
        ASSERT_TRUE(result);
        ASSERT_FALSE(*result);
        EXPECT_EQ(result->error(), failure);
    }

    void expectNoAnswer() const
    {
        Tests::pumpEvents(50);
        EXPECT_EQ(count, 0);
    }
};

} // namespace

TEST_F(ScreenQuestionTest, readableScreen_answersFromTheEventLoopWithoutAskingTheDesktop)
{
    desktop.isReadable = true;
    const ScreenCaptureRequest request = open();
    EXPECT_TRUE(request.isOpen());
    EXPECT_EQ(count, 0) << "not inside the call";
    EXPECT_EQ(desktop.readBy, std::thread::id()) << "not read inside the call";
    expectAnswered();
    EXPECT_FALSE(request.isOpen());
    EXPECT_EQ(desktop.asked, 0);
    EXPECT_EQ(desktop.readBy, std::this_thread::get_id());
    ASSERT_TRUE(*result);
    Tests::expectPixels(**result, {{0, 0}, {40, 30}},
                        [](std::int32_t, std::int32_t) { return fromBytes(51, 51, 51); });
}

TEST_F(ScreenQuestionTest, scaledScreen_givesThePixelsOfTheDevice)
{
    desktop.isReadable = true;
    desktop.scale = 2;
    const ScreenCaptureRequest request = open({{10, 10}, {14, 13}});
    expectAnswered();
    ASSERT_TRUE(*result);
    EXPECT_EQ((*result)->size(), (Pixel{8, 6}));
}

TEST_F(ScreenQuestionTest, readableScreenThatGivesNothing_isUnavailable)
{
    desktop.isReadable = true;
    desktop.isRead = false;
    const ScreenCaptureRequest request = open();
    expectFailure(ScreenCaptureFailure::UNAVAILABLE);
}

TEST_F(ScreenQuestionTest, noDesktopToAsk_isUnavailableFromTheEventLoop)
{
    desktop.isDesktopThere = false;
    const ScreenCaptureRequest request = open();
    EXPECT_TRUE(request.isOpen());
    EXPECT_EQ(count, 0);
    expectFailure(ScreenCaptureFailure::UNAVAILABLE);
}

TEST_F(ScreenQuestionTest, pictureOfTheDesktop_isCutToTheRegion)
{
    const ScreenCaptureRequest request = open({{30, 20}, {45, 25}});
    EXPECT_EQ(desktop.limit, 7s);
    expectNoAnswer();
    desktop.answer(Tests::desktopPicture({80, 60}));
    expectAnswered();
    ASSERT_TRUE(*result);
    Tests::expectPixels(**result, {{60, 40}, {90, 50}},
                        [](std::int32_t x, std::int32_t y) { return x < 80 ? fromBytes(x, y, 7) : Rgb{}; });
}

TEST_F(ScreenQuestionTest, answerOfAnotherThread_arrivesOnThisThread)
{
    std::thread::id answeredOn;
    const ScreenCaptureRequest request =
        open({{0, 0}, {4, 4}}, [&](const ScreenCaptureResult&) { answeredOn = std::this_thread::get_id(); });
    std::thread([this] { desktop.answer(Tests::desktopPicture({40, 30})); }).join();
    EXPECT_EQ(answeredOn, std::thread::id());
    EXPECT_TRUE(Tests::pumpUntil([&] { return answeredOn == std::this_thread::get_id(); }));
}

TEST_F(ScreenQuestionTest, failuresOfTheDesktop_arriveAsTheyAre)
{
    for (const ScreenCaptureFailure failure :
         {ScreenCaptureFailure::REFUSED, ScreenCaptureFailure::UNAVAILABLE, ScreenCaptureFailure::TIMED_OUT,
          ScreenCaptureFailure::FAILED, ScreenCaptureFailure::TOO_LARGE}) {
        count = 0;
        const ScreenCaptureRequest request = open();
        desktop.answer(Unexpected{failure});
        expectFailure(failure);
    }
}

TEST_F(ScreenQuestionTest, pictureOfSomethingElse_isAFailure)
{
    const ScreenCaptureRequest request = open();
    desktop.answer(Tests::desktopPicture({40, 40}));
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenQuestionTest, pictureWithARoundedSide_isCut)
{
    const ScreenCaptureRequest request = open();
    desktop.answer(Tests::desktopPicture({39, 30}));
    expectAnswered();
    ASSERT_TRUE(*result);
}

TEST_F(ScreenQuestionTest, emptyRegion_doesNotAskTheDesktop)
{
    const ScreenCaptureRequest request = open({{5, 5}, {5, 9}});
    expectAnswered();
    EXPECT_EQ(desktop.asked, 0);
    ASSERT_TRUE(*result);
    EXPECT_TRUE((*result)->isEmpty());
}

TEST_F(ScreenQuestionTest, destroyedRequest_isWithdrawnAndNotAnswered)
{
    {
        const ScreenCaptureRequest request = open();
        EXPECT_EQ(desktop.withdrawn, 0);
    }
    EXPECT_EQ(desktop.withdrawn, 1);
    expectNoAnswer();
}

TEST_F(ScreenQuestionTest, answerToADestroyedRequest_isLost)
{
    {
        const ScreenCaptureRequest request = open();
        desktop.answer(Tests::desktopPicture({40, 30}));
    }
    expectNoAnswer();
    desktop.isReadable = true;
    {
        const ScreenCaptureRequest request = open();
    }
    expectNoAnswer();
}

TEST_F(ScreenQuestionTest, cancelledRequest_isWithdrawnOnce)
{
    ScreenCaptureRequest request = open();
    request.cancel();
    request.cancel();
    EXPECT_FALSE(request.isOpen());
    EXPECT_EQ(desktop.withdrawn, 1);
    expectNoAnswer();
}

TEST_F(ScreenQuestionTest, movedRequest_ownsTheQuestion)
{
    ScreenCaptureRequest first = open();
    ScreenCaptureRequest second(std::move(first));
    EXPECT_FALSE(first.isOpen()); // NOLINT(bugprone-use-after-move): an empty request
    EXPECT_TRUE(second.isOpen());
    ScreenCaptureRequest& same = second;
    second = std::move(same);
    EXPECT_TRUE(second.isOpen());
    second = open();
    EXPECT_EQ(desktop.withdrawn, 1) << "the first question";
    desktop.answer(Tests::desktopPicture({40, 30}));
    expectAnswered();
}

TEST_F(ScreenQuestionTest, answer_mayDestroyTheRequest)
{
    auto request = std::make_unique<ScreenCaptureRequest>();
    *request = open({{0, 0}, {40, 30}}, [&](const ScreenCaptureResult& answer) {
        EXPECT_TRUE(answer);
        request.reset();
        ++count;
    });
    desktop.answer(Tests::desktopPicture({40, 30}));
    expectAnswered();
    EXPECT_EQ(request, nullptr);
    EXPECT_EQ(desktop.withdrawn, 1);
}

TEST_F(ScreenQuestionTest, answer_mayBeginTheNextRequest)
{
    ScreenCaptureRequest request = open({{0, 0}, {40, 30}}, [&](const ScreenCaptureResult&) {
        EXPECT_FALSE(request.isOpen());
        request = open();
        desktop.answer(Unexpected{ScreenCaptureFailure::REFUSED});
    });
    desktop.answer(Tests::desktopPicture({40, 30}));
    expectFailure(ScreenCaptureFailure::REFUSED);
}

TEST_F(ScreenQuestionTest, answerGivenTwice_arrivesOnce)
{
    const ScreenCaptureRequest request = open();
    const auto answer = desktop.answer;
    answer(Tests::desktopPicture({40, 30}));
    answer(Unexpected{ScreenCaptureFailure::REFUSED});
    expectAnswered();
    EXPECT_TRUE(*result);
}

TEST_F(ScreenQuestionTest, exceptionOfTheFunction_reachesTheApplication)
{
    Tests::ExceptionWatch watch;
    const ScreenCaptureRequest request =
        open({{0, 0}, {40, 30}}, [&](const ScreenCaptureResult&) { watch.fail("no room"); });
    desktop.answer(Tests::desktopPicture({40, 30}));
    EXPECT_TRUE(Tests::pumpUntil([&] { return watch.caught() == "no room"; }));
    EXPECT_FALSE(request.isOpen());
}

TEST_F(ScreenQuestionTest, closingAll_withdrawsEveryOpenQuestion)
{
    const ScreenCaptureRequest first = open();
    const ScreenCaptureRequest second = open();
    ScreenQuestion::closeAll();
    EXPECT_FALSE(first.isOpen());
    EXPECT_FALSE(second.isOpen());
    EXPECT_EQ(desktop.withdrawn, 2);
    expectNoAnswer();
}

TEST_F(ScreenQuestionTest, withoutAnApplication_isNotOpen)
{
    const Tests::NoApplication none;
    EXPECT_FALSE(open().isOpen());
    EXPECT_EQ(desktop.asked, 0);
}

TEST_F(ScreenQuestionTest, withoutAFunction_isNotOpen)
{
    EXPECT_FALSE(open({{0, 0}, {4, 4}}, {}).isOpen());
    EXPECT_EQ(desktop.asked, 0);
}

TEST_F(ScreenQuestionTest, emptyRequest_isNotOpen)
{
    ScreenCaptureRequest request;
    EXPECT_FALSE(request.isOpen());
    request.cancel();
}
