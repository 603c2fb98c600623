// SPDX-License-Identifier: MIT
#include "NolvexLib/GuiDisabler.h"

#include "NolvexLib/Mutex.h"

#include <mutex>
#include <utility>

namespace Nolvex {

namespace {

struct HookState
{
    Mutex mutex;
    GuiDisabler::Hook hook;
};

HookState& hookState()
{
    static HookState state;
    return state;
}

GuiDisabler::Hook currentHook()
{
    const std::lock_guard lock(hookState().mutex);
    return hookState().hook;
}

} // namespace

GuiDisabler::GuiDisabler()
{
    if (const Hook hook = currentHook())
        m_guard = hook();
}

GuiDisabler::~GuiDisabler() = default;

void GuiDisabler::setHook(Hook hook)
{
    // After the swap `hook` holds the former hook, which is destroyed after the lock has been released.
    const std::lock_guard lock(hookState().mutex);
    std::swap(hookState().hook, hook);
}

} // namespace Nolvex
