// SPDX-License-Identifier: MIT
#include "NolvexLibWx/TaskbarProgress.h"

#include "NolvexLib/Mutex.h"
#include "NolvexLibWx/platform/TaskbarList.h"

#include <atomic>
#include <cmath>
#include <limits>
#include <mutex>
#include <utility>

namespace Nolvex {

namespace {

using Platform::TaskbarState;

constexpr std::int32_t COMPLETE = 1000;
// All other values are thousandths of the operation.
constexpr std::int32_t NO_PROGRESS = -1;
constexpr std::int32_t UNKNOWN_LENGTH = -2;

std::int32_t toThousandths(float fraction)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const double value = static_cast<double>(fraction) * COMPLETE;
    if (std::isnan(value))
        return 0;
    if (value >= Limits::max())
        return Limits::max();
    return value <= Limits::min() ? Limits::min() : static_cast<std::int32_t>(value);
}

} // namespace

struct Wx::TaskbarProgress::State
{
    State(WindowHandle shownWindow, std::unique_ptr<Platform::TaskbarList> shell)
        : window(shownWindow), taskbar(std::move(shell))
    {}

    void show(std::int32_t value)
    {
        const std::lock_guard lock(mutex);
        if (shown == value)
            return;
        shown = value;
        if (taskbar)
            tellTaskbar(value);
    }

    void tellTaskbar(std::int32_t value) const
    {
        if (value == NO_PROGRESS) {
            taskbar->setProgressState(window, TaskbarState::NO_PROGRESS);
        } else if (value == UNKNOWN_LENGTH) {
            taskbar->setProgressState(window, TaskbarState::INDETERMINATE);
        } else {
            taskbar->setProgressState(window, TaskbarState::NORMAL);
            taskbar->setProgressValue(window, value, COMPLETE);
        }
    }

    // The value at the start differs from NO_PROGRESS, so that the constructor always tells the task bar.
    std::atomic<std::int32_t> shown = 0;
    Mutex mutex; // held while the task bar is told, so that calls from several threads do not mix
    const WindowHandle window;
    const std::unique_ptr<Platform::TaskbarList> taskbar;
};

Wx::TaskbarProgress::TaskbarProgress(WindowHandle window)
    : TaskbarProgress(window, Platform::createTaskbarList())
{}

Wx::TaskbarProgress::TaskbarProgress(WindowHandle window, std::unique_ptr<Platform::TaskbarList> taskbar)
    : m_state(std::make_unique<State>(window, std::move(taskbar)))
{
    setIdle();
}

Wx::TaskbarProgress::TaskbarProgress(TaskbarProgress&& other) noexcept = default;

Wx::TaskbarProgress::~TaskbarProgress()
{
    setIdle();
}

void Wx::TaskbarProgress::setIdle()
{
    if (m_state)
        m_state->show(NO_PROGRESS);
}

void Wx::TaskbarProgress::setIndeterminate()
{
    if (m_state)
        m_state->show(UNKNOWN_LENGTH);
}

void Wx::TaskbarProgress::setProgress(float fraction)
{
    if (!m_state)
        return;
    const std::int32_t value = toThousandths(fraction);
    m_state->show(value);
    // The last of several callers wins, even if another thread has shown something else meanwhile.
    m_state->shown = value;
}

} // namespace Nolvex
