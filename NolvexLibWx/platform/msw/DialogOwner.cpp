// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogOwner.h"

#include <wx/dialog.h>

namespace Nolvex {

WindowHandle Platform::dialogOwner(WindowHandle owner)
{
    return owner;
}

bool Platform::isPossibleParent(const wxWindow& /*wrapper*/)
{
    return true;
}

bool Platform::cancelOwnedDialogs(const wxWindow& /*dialog*/)
{
    return false;
}

void Platform::cancelDialog(wxDialog& dialog)
{
    if (dialog.IsModal() && dialog.IsShown())
        dialog.Close(true);
}

} // namespace Nolvex
