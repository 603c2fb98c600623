// SPDX-License-Identifier: MIT
#pragma once

#include <wx/timer.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace Nolvex::Tests {

/// Performs steps one after another from timers. A drag or a modal dialog, which runs a loop of its own, is
/// driven that way.
class TimedSteps
{
public:
    using Step = std::function<void()>;

    static constexpr int INTERVAL = 60; // milliseconds, in which events arrive at other windows

    explicit TimedSteps(const std::vector<Step>& steps)
    {
        for (const Step& step : steps)
            m_timers.push_back(std::make_unique<StepTimer>(*this, step));
        startNext();
    }

    TimedSteps(const TimedSteps&) = delete;
    TimedSteps& operator=(const TimedSteps&) = delete;

    ~TimedSteps() = default;

    /// Returns true if the last step has ended.
    bool isDone() const { return m_ended == m_timers.size(); }

private:
    // GTK does not call a timer while that timer is being handled. A step may process events until a later
    // step ends a dialog, so each step has a timer of its own.
    class StepTimer : public wxTimer
    {
    public:
        StepTimer(TimedSteps& steps, Step step) : m_steps(steps), m_step(std::move(step)) {}

        void Notify() override
        {
            m_steps.startNext();
            m_step();
            ++m_steps.m_ended;
        }

    private:
        TimedSteps& m_steps;
        Step m_step;
    };

    void startNext()
    {
        if (m_next < m_timers.size())
            m_timers[m_next++]->StartOnce(INTERVAL);
    }

    std::vector<std::unique_ptr<StepTimer>> m_timers;
    std::size_t m_next = 0;
    std::size_t m_ended = 0;
};

} // namespace Nolvex::Tests
