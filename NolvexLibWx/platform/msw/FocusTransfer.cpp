// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/FocusTransfer.h"

#include <wx/weakref.h>
#include <wx/window.h>

namespace Nolvex {

bool Platform::transferFocus(wxWindow& window)
{
    const wxWeakRef<wxWindow> weak(&window);
    window.SetFocus();
    return weak;
}

} // namespace Nolvex
