// SPDX-License-Identifier: MIT
#include "NolvexLib/Timer.h"

#include "NolvexLib/StopException.h"

namespace Nolvex {

namespace {

constexpr std::int64_t NANOSECONDS_PER_SECOND = 1'000'000'000;

} // namespace

Timer::Timer(std::int64_t ticksPerSecond, Flags<TimerFlag> flags)
    : m_ticksPerSecond(ticksPerSecond),
      m_paused(flags.has(TimerFlag::PAUSED)),
      m_start(std::chrono::steady_clock::now())
{
    if (ticksPerSecond < 1 || ticksPerSecond > NANOSECONDS_PER_SECOND)
        Detail::throwStopException("Timer", __LINE__);
}

std::int64_t Timer::getElapsed() const
{
    return m_paused ? 0 : toTicks(std::chrono::steady_clock::now() - m_start, m_ticksPerSecond);
}

void Timer::start()
{
    if (m_paused)
        restart();
}

void Timer::restart()
{
    m_paused = false;
    m_start = std::chrono::steady_clock::now();
}

std::int64_t Timer::toTicks(std::chrono::nanoseconds span, std::int64_t ticksPerSecond)
{
    // Seconds and the rest are converted separately: nanoseconds times ticks would not fit into 64 bits.
    const std::int64_t seconds = span.count() / NANOSECONDS_PER_SECOND;
    const std::int64_t rest = span.count() % NANOSECONDS_PER_SECOND;
    return seconds * ticksPerSecond + rest * ticksPerSecond / NANOSECONDS_PER_SECOND;
}

} // namespace Nolvex
