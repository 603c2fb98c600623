// SPDX-License-Identifier: MIT
#include "apps/program/ScreenshotTimer.h"

#include <utility>

namespace Nolvex::Program {

ScreenshotTimer::ScreenshotTimer(wxTopLevelWindow& window, int periodMilliseconds, Turn turn)
    : m_window(&window),
      m_turn(std::move(turn)),
      m_error(L"The window was closed before its picture was taken.")
{
    Start(periodMilliseconds);
}

void ScreenshotTimer::Notify()
{
    // A window that is being destroyed exists for a moment longer.
    if (!m_window || m_window->IsBeingDeleted()) {
        Stop();
        return;
    }
    const Optional<String> outcome = m_turn();
    if (!outcome)
        return;
    Stop();
    m_error = *outcome;
    m_window->Close();
}

} // namespace Nolvex::Program
