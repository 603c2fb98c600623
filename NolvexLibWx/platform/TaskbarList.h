// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/WindowHandle.h"

#include <cstdint>
#include <memory>

namespace Nolvex::Platform {

/// How a task bar button shows progress. The values are those of the Windows shell.
enum class TaskbarState : int
{
    NO_PROGRESS = 0,
    INDETERMINATE = 1,
    NORMAL = 2,
};

/// The part of the desktop that shows the progress of programs. Null handles and handles of destroyed windows
/// are allowed. Several threads may call the functions, one after another, and no function waits for the
/// desktop.
class TaskbarList : private Noncopyable
{
public:
    virtual ~TaskbarList() = default;

    /// The state NORMAL is followed by a call of setProgressValue.
    virtual void setProgressState(WindowHandle window, TaskbarState state) = 0;

    /// `completed` may be below 0 or above `total`.
    virtual void setProgressValue(WindowHandle window, std::int32_t completed, std::int32_t total) = 0;

protected:
    TaskbarList() = default;
};

/// Returns null if the desktop shows no progress of programs.
std::unique_ptr<TaskbarList> createTaskbarList();

} // namespace Nolvex::Platform
