// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PopupPlacement.h"

namespace Nolvex {

bool Platform::placeBeside(wxWindow& /*popup*/, const wxWindow& /*owner*/)
{
    return false;
}

bool Platform::placeAt(wxWindow& /*popup*/, const wxWindow& /*owner*/, const wxPoint& /*corner*/)
{
    return false;
}

} // namespace Nolvex
