// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextInput.h"

#include <wx/textctrl.h>

namespace Nolvex {

void Platform::captureMouse(wxTextCtrl& text)
{
    text.CaptureMouse();
}

} // namespace Nolvex
