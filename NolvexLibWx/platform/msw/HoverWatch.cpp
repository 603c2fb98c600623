// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/HoverWatch.h"

namespace Nolvex {

void Platform::watchHover(wxWindow& /*window*/)
{
    // Windows itself makes these events.
}

} // namespace Nolvex
