// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ToolkitModule.h"

#include "NolvexLib/WinApi/ModuleHandle.h"

#include <wx/msw/private.h>

namespace Nolvex {

void Platform::announceToolkitModule()
{
    // The toolkit's own module, neither the host's nor this library's: found through the address of one of
    // its functions.
    wxSetInstance(
        static_cast<HINSTANCE>(WinApi::getModuleHandle(reinterpret_cast<const void*>(&wxSetInstance))));
}

} // namespace Nolvex
