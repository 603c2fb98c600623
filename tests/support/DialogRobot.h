// SPDX-License-Identifier: MIT
#pragma once

#include <wx/timer.h>

#include <functional>
#include <string>
#include <vector>

namespace Nolvex::Tests {

/// Operates a modal dialog while the function under test shows it: runs steps in their order, each as soon as
/// it can be done.
///
/// The test fails if the dialog ends before all steps have been run. If a step cannot be done in time, or the
/// dialog stays after the last step, the test fails and the robot ends all dialogs of the system, so that no
/// test hangs.
class DialogRobot : private wxTimer
{
public:
    struct Step
    {
        std::string name;
        std::function<bool()> isPossible;
        std::function<void()> action;
    };

    explicit DialogRobot(std::vector<Step> steps);
    ~DialogRobot() override;

private:
    void Notify() override;
    bool isStuck() const;
    void runStep();

    std::vector<Step> m_steps;
    std::size_t m_done = 0;
    int m_ticks = 0; // since the last step
    int m_possibleTicks = 0;
    bool m_busy = false;
    bool m_stuck = false;
};

} // namespace Nolvex::Tests
