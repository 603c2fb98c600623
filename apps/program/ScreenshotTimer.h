// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <wx/timer.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <functional>

namespace Nolvex::Program {

/// Has pictures of a window taken a turn at a time, leaving the window system time to paint between two, then
/// closes the window.
class ScreenshotTimer : public wxTimer
{
public:
    /// What a turn has come to: none to go on, else the error with which all is over, empty for none.
    using Turn = std::function<Optional<String>()>;

    ScreenshotTimer(wxTopLevelWindow& window, int periodMilliseconds, Turn turn);

    void Notify() override;

    /// A sentence for the user, empty when all pictures were taken. That the window was closed before is an
    /// error, too.
    const String& error() const { return m_error; }

private:
    wxWeakRef<wxTopLevelWindow> m_window;
    Turn m_turn;
    String m_error;
};

} // namespace Nolvex::Program
