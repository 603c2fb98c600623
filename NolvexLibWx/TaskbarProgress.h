// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>
#include <memory>

namespace Nolvex::Platform {
class TaskbarList;
} // namespace Nolvex::Platform

namespace Nolvex::Wx {

/// Shows the progress of a long operation on the task bar button of a top-level window or, on Linux, on the
/// program's icon in the dock. docs/taskbar-progress.md has the details.
///
/// Every thread may call every function, also while wxWidgets has not been started. No function waits for the
/// desktop. Nothing happens if the desktop shows no progress, and after the object has been moved from. The
/// window may be destroyed first.
class NOLVEXLIBWX_EXPORT TaskbarProgress
{
public:
    /// Begins without progress, and removes what the button has shown so far.
    explicit TaskbarProgress(WindowHandle window);

    /// Shows the progress by `taskbar`, which may be null, instead of the system's task bar.
    TaskbarProgress(WindowHandle window, std::unique_ptr<Platform::TaskbarList> taskbar);

    TaskbarProgress(TaskbarProgress&& other) noexcept;
    TaskbarProgress& operator=(TaskbarProgress&&) = delete;

    /// Removes the progress from the button.
    ~TaskbarProgress();

    /// Shows no progress.
    void setIdle();

    /// Shows an operation of unknown length.
    void setIndeterminate();

    /// Shows a fraction of the operation, 0 to 1, in thousandths. The task bar decides how it shows other
    /// values. Beyond the range of integers they become the nearest integer, and NaN becomes 0. A fraction
    /// that is cut to -1 or -2 thousandths means idle or indeterminate.
    void setProgress(float fraction);

private:
    struct State;

    std::unique_ptr<State> m_state; // null after a move
};

} // namespace Nolvex::Wx
