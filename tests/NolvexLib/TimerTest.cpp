// SPDX-License-Identifier: MIT
#include "NolvexLib/Timer.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

constexpr std::int64_t BILLION = 1'000'000'000;

void waitUntilBeyond(const Timer& timer, std::int64_t ticks)
{
    while (timer.getElapsed() <= ticks) {
    }
}

TEST(TimerTest, constructor_withoutArguments_countsMilliseconds)
{
    EXPECT_EQ(Timer().ticksPerSecond(), 1000);
}

TEST(TimerTest, getElapsed_goesOnFromTheConstructionOn)
{
    const Timer timer(BILLION);
    waitUntilBeyond(timer, 0);
    const std::int64_t elapsed = timer.getElapsed();
    EXPECT_GT(elapsed, 0);
    waitUntilBeyond(timer, elapsed);
    EXPECT_GT(timer.getElapsed(), elapsed);
}

TEST(TimerTest, getElapsed_agreesWithTheSteadyClock)
{
    const auto before = std::chrono::steady_clock::now();
    const Timer timer(1'000'000);
    waitUntilBeyond(timer, 2000);
    const std::int64_t elapsed = timer.getElapsed();
    const auto span = std::chrono::steady_clock::now() - before;
    EXPECT_LE(elapsed, std::chrono::duration_cast<std::chrono::microseconds>(span).count());
}

TEST(TimerTest, restart_beginsAtZeroAgain)
{
    Timer timer(BILLION);
    const Timer whole = timer;
    waitUntilBeyond(timer, 1'000'000);
    timer.restart();
    EXPECT_LE(timer.getElapsed(), whole.getElapsed() - 1'000'000);
}

TEST(TimerTest, constructor_paused_standsAtZeroUntilStarted)
{
    Timer timer(BILLION, TimerFlag::PAUSED);
    waitUntilBeyond(Timer(BILLION), 1000);
    EXPECT_TRUE(timer.isPaused());
    EXPECT_EQ(timer.getElapsed(), 0);
    timer.start();
    EXPECT_FALSE(timer.isPaused());
    waitUntilBeyond(timer, 0);
    EXPECT_GT(timer.getElapsed(), 0);
}

TEST(TimerTest, start_ofRunningTimer_changesNothing)
{
    Timer timer(BILLION);
    waitUntilBeyond(timer, 1'000'000);
    timer.start();
    EXPECT_GT(timer.getElapsed(), 1'000'000);
}

TEST(TimerTest, toTicks_ofAHundredYearsInNanoseconds_isExact)
{
    const std::chrono::nanoseconds century(std::int64_t{36525} * 86400 * BILLION + 1);
    EXPECT_EQ(Timer::toTicks(century, BILLION), century.count());
    EXPECT_EQ(Timer::toTicks(century, 999'999'999), std::int64_t{36525} * 86400 * 999'999'999);
}

TEST(TimerTest, toTicks_countsWholeTicks)
{
    EXPECT_EQ(Timer::toTicks(std::chrono::nanoseconds(1'999'999), 1000), 1);
    EXPECT_EQ(Timer::toTicks(std::chrono::milliseconds(2500), 1), 2);
    EXPECT_EQ(Timer::toTicks(std::chrono::milliseconds(2500), 3), 7);
}

TEST(TimerTest, constructor_withImpossibleTicks_isAProgrammingError)
{
    EXPECT_THROW(Timer(0), StopException);
    EXPECT_THROW(Timer(-1), StopException);
    EXPECT_THROW(Timer(BILLION + 1), StopException);
}

} // namespace
} // namespace Nolvex
