// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"

#include <memory>

namespace Nolvex {

/// As long as it lives, the application's windows take no input. They may be nested.
///
/// How that is done only the toolkit knows, which installs a hook; without one nothing is disabled.
class NOLVEXLIB_EXPORT GuiDisabler : private Noncopyable
{
public:
    /// Disables the windows and returns what enables them again when it is destroyed; null is allowed.
    using Hook = Function<std::shared_ptr<void>()>;

    /// Calls the hook. What that raises leaves the constructor, and nothing is disabled.
    GuiDisabler();
    ~GuiDisabler();

    /// For the disablers to come; an empty one takes the hook away. Callable from every thread.
    static void setHook(Hook hook);

private:
    std::shared_ptr<void> m_guard;
};

} // namespace Nolvex
