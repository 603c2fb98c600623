// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"

#include <memory>

namespace Nolvex {

/// Keeps the application's windows from taking input as long as the object lives. Several objects may live at
/// once.
///
/// The core library knows no windows. NolvexLibWx installs the hook that disables them; without a hook
/// nothing is disabled.
class NOLVEXLIB_EXPORT GuiDisabler : private Noncopyable
{
public:
    /// Disables the windows. Returns an object whose destruction enables them again, or null.
    using Hook = Function<std::shared_ptr<void>()>;

    /// Calls the hook. An exception of the hook leaves the constructor, and nothing is disabled.
    GuiDisabler();
    ~GuiDisabler();

    /// Sets the hook of all further disablers; an empty one removes the hook. Every thread may call this
    /// function.
    static void setHook(Hook hook);

private:
    std::shared_ptr<void> m_guard;
};

} // namespace Nolvex
