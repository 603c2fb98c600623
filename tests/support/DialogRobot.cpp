// SPDX-License-Identifier: MIT
#include "support/DialogRobot.h"

#include "support/NativeDialog.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace Nolvex {

namespace {

constexpr int PERIOD = 20;            // milliseconds
constexpr int MAX_TICKS = 500;        // ten seconds for each step
constexpr int MAX_STUCK_TICKS = 1500; // a dialog that cannot be ended must not hang the run
constexpr int TICKS_TO_END_AGAIN = 25;
// The window manager hears later than the program which window has the focus.
constexpr int TICKS_TO_SETTLE = 5;

} // namespace

Tests::DialogRobot::DialogRobot(std::vector<Step> steps) : m_steps(std::move(steps))
{
    Start(PERIOD);
}

Tests::DialogRobot::~DialogRobot()
{
    Stop();
    if (!m_stuck && m_done < m_steps.size())
        ADD_FAILURE() << "The dialog ended before the step: " << m_steps[m_done].name;
}

bool Tests::DialogRobot::isStuck() const
{
    return m_ticks >= MAX_TICKS;
}

void Tests::DialogRobot::runStep()
{
    m_ticks = 0;
    m_possibleTicks = 0;
    m_steps[m_done++].action();
}

void Tests::DialogRobot::Notify()
{
    // Simulated input processes events, among them those of this timer.
    if (std::exchange(m_busy, true))
        return;
    ++m_ticks;
    if (m_ticks > MAX_STUCK_TICKS)
        std::abort();
    if (isStuck()) {
        if (!std::exchange(m_stuck, true))
            ADD_FAILURE() << "The dialog does not get to: "
                          << (m_done < m_steps.size() ? m_steps[m_done].name : "its end");
        if (m_ticks % TICKS_TO_END_AGAIN == 0)
            endNativeDialogs();
    } else if (m_done < m_steps.size()) {
        m_possibleTicks = m_steps[m_done].isPossible() ? m_possibleTicks + 1 : 0;
        if (m_possibleTicks == TICKS_TO_SETTLE)
            runStep();
    }
    m_busy = false;
}

} // namespace Nolvex
