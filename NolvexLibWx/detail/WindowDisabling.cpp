// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/WindowDisabling.h"

#include "NolvexLib/GuiDisabler.h"
#include "NolvexLibWx/platform/KeptFocus.h"

#include <wx/utils.h>

#include <memory>

namespace Nolvex {

namespace {

// The windows are enabled before the focus returns to one of them.
struct DisabledWindows
{
    Platform::KeptFocus focus;
    wxWindowDisabler disabler;
};

} // namespace

void WindowDisabling::install()
{
    GuiDisabler::setHook([]() -> std::shared_ptr<void> { return std::make_shared<DisabledWindows>(); });
}

void WindowDisabling::uninstall()
{
    GuiDisabler::setHook({});
}

} // namespace Nolvex
