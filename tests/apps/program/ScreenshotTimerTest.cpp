// SPDX-License-Identifier: MIT
#include "apps/program/ScreenshotTimer.h"

#include "support/FrameFixture.h"

#include <gtest/gtest.h>

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
