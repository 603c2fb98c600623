// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ToolkitModule.h"

namespace Nolvex {

void Platform::announceToolkitModule()
{
    // wxGTK needs no module handle.
}

} // namespace Nolvex
