// SPDX-License-Identifier: MIT
#include "apps/program/ScreenshotTimer.h"

#include <wx/app.h>

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
    // wxWidgets destroys a closed window a little later, so that the weak reference may still point to the
    // window.
    if (!m_window || wxTheApp->IsScheduledForDestruction(m_window)) {
        Stop();
        return;
    }
    const Optional<String> outcome = m_turn();
    if (!outcome)
        return;
    Stop();
    m_error = *outcome;
    if (m_window) // the turn may have destroyed the window
        m_window->Close();
}

} // namespace Nolvex::Program
