// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DesktopScale.h"

#include <wx/window.h>

namespace Nolvex {

int Platform::scaleToDesktop(int units)
{
    return wxWindowBase::FromDIP(wxSize(units, 0), nullptr).GetWidth();
}

} // namespace Nolvex
