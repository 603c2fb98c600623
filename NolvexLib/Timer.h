// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/TimerFlag.h"

#include <chrono>
#include <cstdint>

namespace Nolvex {

/// A stopwatch. Changes of the computer's clock do not affect it.
class NOLVEXLIB_EXPORT Timer
{
public:
    /// Starts at once unless `flags` has TimerFlag::PAUSED. A tick must last a nanosecond or longer:
    /// `ticksPerSecond` outside 1 to 1,000,000,000 is a programming error (StopException).
    explicit Timer(std::int64_t ticksPerSecond = 1000, Flags<TimerFlag> flags = {});

    std::int64_t ticksPerSecond() const { return m_ticksPerSecond; }

    bool isPaused() const { return m_paused; }

    /// The whole ticks since the timer began to run, or 0 while it is paused.
    std::int64_t getElapsed() const;

    /// Starts a paused timer. Does nothing to a running timer.
    void start();

    /// Starts the timer again from 0, even if it was paused.
    void restart();

    /// The whole ticks in a span of time of up to 290 years, for 1 to 1,000,000,000 ticks a second.
    static std::int64_t toTicks(std::chrono::nanoseconds span, std::int64_t ticksPerSecond);

private:
    std::int64_t m_ticksPerSecond;
    bool m_paused;
    std::chrono::steady_clock::time_point m_start;
};

} // namespace Nolvex
