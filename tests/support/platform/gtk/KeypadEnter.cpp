// SPDX-License-Identifier: MIT
#include "support/KeypadEnter.h"

#include <wx/uiaction.h>

void Nolvex::Tests::pressKeypadEnter()
{
    wxUIActionSimulator().Char(WXK_NUMPAD_ENTER);
}
