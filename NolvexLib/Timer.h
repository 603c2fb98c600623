// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/TimerFlag.h"

#include <chrono>
#include <cstdint>

namespace Nolvex {

/// A stopwatch that no change of the computer's clock disturbs. It runs from its construction on.
class NOLVEXLIB_EXPORT Timer
{
public:
    /// A tick in less than a nanosecond, or in none, is a programming error (StopException).
    explicit Timer(std::int64_t ticksPerSecond = 1000, Flags<TimerFlag> flags = {});

    std::int64_t ticksPerSecond() const { return m_ticksPerSecond; }

    bool isPaused() const { return m_isPaused; }

    /// Whole ticks since it began to run, 0 while it is paused.
    std::int64_t getElapsed() const;

    /// Lets a paused timer run; nothing happens to a running one.
    void start();

    /// Runs from 0 on, paused or not.
    void restart();

    /// Whole ticks in a span of time, for spans of up to 290 years and 1 to 1,000,000,000 ticks a second.
    static std::int64_t toTicks(std::chrono::nanoseconds span, std::int64_t ticksPerSecond);

private:
    std::int64_t m_ticksPerSecond;
    bool m_isPaused;
    std::chrono::steady_clock::time_point m_start;
};

} // namespace Nolvex
