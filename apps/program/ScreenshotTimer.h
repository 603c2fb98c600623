// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <wx/timer.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <functional>

namespace Nolvex::Program {

/// Takes pictures of a window one turn at a time, so that the window system has time to paint in between,
/// then closes the window.
class ScreenshotTimer : public wxTimer
{
public:
    /// The work of one turn. A turn returns nullopt if more turns are to come, and otherwise the error that
    /// ended the work, which is empty for success.
    using Turn = std::function<Optional<String>()>;

    ScreenshotTimer(wxTopLevelWindow& window, int periodMilliseconds, Turn turn);

    void Notify() override;

    /// Returns a sentence for the user, which is empty if all pictures were taken. If the window was closed
    /// earlier, that is an error, too.
    const String& error() const { return m_error; }

private:
    wxWeakRef<wxTopLevelWindow> m_window;
    Turn m_turn;
    String m_error;
};

} // namespace Nolvex::Program
