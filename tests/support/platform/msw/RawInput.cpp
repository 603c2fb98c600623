// SPDX-License-Identifier: MIT
#include "support/RawInput.h"

#include <wx/uiaction.h>

namespace Nolvex {

// On Windows wxUIActionSimulator processes no events.

void Tests::placeMouse(const wxPoint& screenPosition)
{
    wxUIActionSimulator().MouseMove(screenPosition);
}

void Tests::holdMouse()
{
    wxUIActionSimulator().MouseDown();
}

void Tests::dropMouse()
{
    wxUIActionSimulator().MouseUp();
}

void Tests::tapEscape()
{
    wxUIActionSimulator().Char(WXK_ESCAPE);
}

} // namespace Nolvex
