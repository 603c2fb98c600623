// SPDX-License-Identifier: MIT
#include "apps/program/ScreenshotTimer.h"

#include "support/FrameFixture.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Nolvex;
using Program::ScreenshotTimer;

namespace {

constexpr int PERIOD = 20;

struct ScreenshotTimerTest : Tests::FrameFixture
{
    int turns = 0;

    ScreenshotTimer::Turn endingAt(int last, const wchar_t* error)
    {
        return [this, last, error]() -> Optional<String> {
            return ++turns == last ? Optional<String>(error) : Optional<String>();
        };
    }
};

} // namespace

TEST_F(ScreenshotTimerTest, lastTurn_closesTheWindowWithoutError)
{
    const ScreenshotTimer timer(*frame, PERIOD, endingAt(3, L""));
    EXPECT_FALSE(timer.error().isEmpty()) << "not yet taken";
    EXPECT_TRUE(Tests::pumpUntil([&] { return !frame; }));
    Tests::pumpEvents(3 * PERIOD);
    EXPECT_EQ(turns, 3);
    EXPECT_TRUE(timer.error().isEmpty());
}

TEST_F(ScreenshotTimerTest, turnThatFails_isTheLast)
{
    const ScreenshotTimer timer(*frame, PERIOD, endingAt(1, L"The file cannot be written."));
    EXPECT_TRUE(Tests::pumpUntil([&] { return !frame; }));
    Tests::pumpEvents(3 * PERIOD);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(timer.error(), L"The file cannot be written.");
}

TEST_F(ScreenshotTimerTest, windowClosedBefore_isAnErrorAndTakesNoFurtherTurn)
{
    const ScreenshotTimer timer(*frame, PERIOD, endingAt(1000, L""));
    ASSERT_TRUE(Tests::pumpUntil([&] { return turns > 0; }));
    frame->Close();
    const int before = turns;
    Tests::pumpEvents(5 * PERIOD);
    EXPECT_FALSE(frame);
    EXPECT_EQ(turns, before);
    EXPECT_EQ(timer.error(), L"The window was closed before its picture was taken.");
}

TEST_F(ScreenshotTimerTest, firstTurn_isTakenAfterThePeriod)
{
    const ScreenshotTimer timer(*frame, 10 * PERIOD, endingAt(1, L""));
    Tests::pumpEvents(2 * PERIOD);
    EXPECT_EQ(turns, 0);
    EXPECT_TRUE(Tests::pumpUntil([&] { return turns == 1; }));
}

TEST_F(ScreenshotTimerTest, windowIsPaintedBetweenTwoTurns)
{
    showFrame();
    int paintings = 0;
    panel->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
        ++paintings;
        event.Skip();
    });
    std::vector<int> paintingsBefore;
    const ScreenshotTimer timer(*frame, 5 * PERIOD, [&]() -> Optional<String> {
        paintingsBefore.push_back(paintings);
        panel->Refresh();
        return paintingsBefore.size() == 4 ? Optional<String>(String()) : Optional<String>();
    });
    ASSERT_TRUE(Tests::pumpUntil([&] { return !frame; }));
    for (std::size_t i = 1; i < paintingsBefore.size(); ++i)
        EXPECT_GT(paintingsBefore[i], paintingsBefore[i - 1]) << i;
}

TEST_F(ScreenshotTimerTest, windowDestroyedByTheLastTurn_isSurvived)
{
    const ScreenshotTimer timer(*frame, PERIOD, [&]() -> Optional<String> {
        ++turns;
        delete frame.get();
        return String(L"The picture came too late.");
    });
    EXPECT_TRUE(Tests::pumpUntil([&] { return turns == 1; }));
    Tests::pumpEvents(3 * PERIOD);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(timer.error(), L"The picture came too late.");
}

TEST_F(ScreenshotTimerTest, windowThatStaysOpen_getsNoFurtherTurn)
{
    frame->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
    const ScreenshotTimer timer(*frame, PERIOD, endingAt(2, L""));
    ASSERT_TRUE(Tests::pumpUntil([&] { return turns == 2; }));
    Tests::pumpEvents(3 * PERIOD);
    EXPECT_EQ(turns, 2);
    EXPECT_TRUE(timer.error().isEmpty());
    EXPECT_TRUE(frame);
}

TEST_F(ScreenshotTimerTest, destroyedTimer_takesNoFurtherTurn)
{
    {
        const ScreenshotTimer timer(*frame, PERIOD, endingAt(1000, L""));
        ASSERT_TRUE(Tests::pumpUntil([&] { return turns > 0; }));
    }
    const int before = turns;
    Tests::pumpEvents(5 * PERIOD);
    EXPECT_EQ(turns, before);
    EXPECT_TRUE(frame) << "only the timer closes the window";
}
