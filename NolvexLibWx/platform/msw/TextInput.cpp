// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextInput.h"

#include <wx/msw/wrapwin.h>
#include <wx/textctrl.h>

namespace Nolvex {

void Platform::removeLengthLimit(wxTextCtrl& text)
{
    // 0 stands for the highest limit.
    SendMessageW(static_cast<HWND>(text.GetHWND()), EM_LIMITTEXT, 0, 0);
}

// The control is one window.

void Platform::prepareCapture(wxTextCtrl& /*text*/) {}

void Platform::directCapture(wxTextCtrl& /*text*/) {}

} // namespace Nolvex
