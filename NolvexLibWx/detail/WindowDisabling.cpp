// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/WindowDisabling.h"

#include "NolvexLib/GuiDisabler.h"

#include <wx/utils.h>

#include <memory>

namespace Nolvex {

void WindowDisabling::install()
{
    GuiDisabler::setHook([]() -> std::shared_ptr<void> { return std::make_shared<wxWindowDisabler>(); });
}

void WindowDisabling::uninstall()
{
    GuiDisabler::setHook({});
}

} // namespace Nolvex
