// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ToolkitModule.h"

namespace Nolvex {

void Platform::announceToolkitModule()
{
    // The GTK toolkit keeps no module handle.
}

} // namespace Nolvex
