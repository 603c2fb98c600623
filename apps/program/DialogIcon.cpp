// SPDX-License-Identifier: MIT
#include "apps/program/DialogIcon.h"

#include "NolvexLibWx/MessageDialog.h"

#include <wx/bitmap.h>
#include <wx/iconbndl.h>
#include <wx/toplevel.h>

namespace Nolvex {

void Program::useIconInDialogs(const wxTopLevelWindow& window)
{
    const wxIconBundle& icons = window.GetIcons();
    wxBitmap icon;
    if (!icons.IsEmpty() && icon.CopyFromIcon(icons.GetIconByIndex(0)))
        Wx::MessageDialog::overrideFrameIcon(icon);
}

} // namespace Nolvex
