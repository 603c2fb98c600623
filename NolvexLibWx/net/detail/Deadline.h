// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace Nolvex::Wx::Detail {

/// The time at which a wait for the peer ends: when the peer has been silent for too long, or at a fixed
/// time, whichever comes first.
class Deadline
{
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::milliseconds;

    /// A silence of that length, which begins now and begins anew with each `restart`.
    static Deadline afterSilence(Milliseconds silence)
    {
        Deadline deadline;
        deadline.m_silence = std::clamp(silence, Milliseconds(0), MAX_SPAN);
        deadline.restart();
        return deadline;
    }

    /// A fixed time: the first moment at which more than `limitMs` milliseconds have passed since now.
    /// Without a limit the wait never ends.
    static Deadline ofLimit(const Optional<std::int64_t>& limitMs)
    {
        Deadline deadline;
        if (limitMs)
            deadline.m_end = Clock::now() + std::clamp(Milliseconds(*limitMs), Milliseconds(-1), MAX_SPAN) +
                             Milliseconds(1);
        return deadline;
    }

    /// The same silence, but no wait beyond the time at which `other` ends by now.
    Deadline noLaterThan(const Deadline& other) const
    {
        Deadline deadline = *this;
        deadline.m_end = std::min(m_end, other.end());
        return deadline;
    }

    /// The peer has been heard of: its silence begins anew.
    void restart()
    {
        if (m_silence)
            m_silenceEnd = Clock::now() + *m_silence;
    }

    bool hasPassed() const { return Clock::now() >= end(); }

    /// Rounded up; 0 once the deadline has passed.
    Milliseconds left() const
    {
        const Clock::time_point now = Clock::now();
        return std::chrono::ceil<Milliseconds>(std::clamp(end(), now, now + MAX_SPAN) - now);
    }

private:
    // A century. The sum with the clock's time must fit into its type.
    static constexpr Milliseconds MAX_SPAN = std::chrono::hours(24 * 36'525);

    Deadline() = default;

    Clock::time_point end() const { return std::min(m_silenceEnd, m_end); }

    Optional<Milliseconds> m_silence;
    Clock::time_point m_silenceEnd = Clock::time_point::max();
    Clock::time_point m_end = Clock::time_point::max();
};

} // namespace Nolvex::Wx::Detail
