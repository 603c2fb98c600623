// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/Timer.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// The time that a caller gives to an operation, counted from the object's construction on.
class TimeLimit
{
public:
    using Clock = std::chrono::steady_clock;

    /// In milliseconds; none for all the time there is.
    explicit TimeLimit(const Optional<std::int64_t>& limitMs) : m_limitMs(limitMs) {}

    bool isGiven() const { return m_limitMs.has_value(); }

    bool hasPassed() const { return m_limitMs && m_timer.getElapsed() > *m_limitMs; }

    /// When hasPassed becomes true. Only when a limit is given.
    Clock::time_point end() const
    {
        // A century; beyond that, the sum with the time of day would not fit.
        constexpr std::int64_t MOST_MS = 3'155'760'000'000;
        const std::int64_t left =
            std::clamp(*m_limitMs, std::int64_t(-1), MOST_MS) - m_timer.getElapsed() + 1;
        return Clock::now() + std::chrono::milliseconds(left);
    }

private:
    Optional<std::int64_t> m_limitMs;
    Timer m_timer{1000};
};

} // namespace Nolvex::Wx::Legacy::Detail
