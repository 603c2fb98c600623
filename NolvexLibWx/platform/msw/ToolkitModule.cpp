// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ToolkitModule.h"

#include "NolvexLib/WinApi/ModuleHandle.h"

#include <wx/msw/private.h>

namespace Nolvex {

void Platform::announceToolkitModule()
{
    // The module of wxWidgets is found by the address of one of its functions, because it may be neither the
    // host nor this library.
    wxSetInstance(
        static_cast<HINSTANCE>(WinApi::getModuleHandle(reinterpret_cast<const void*>(&wxSetInstance))));
}

} // namespace Nolvex
