// SPDX-License-Identifier: MIT
#include "NolvexLibWx/WindowIcon.h"

#include "NolvexLibWx/MemoryImages.h"
#include "NolvexLibWx/resources/ApplicationIcon.h"

#include <wx/icon.h>
#include <wx/toplevel.h>

namespace Nolvex {

void Wx::setIcon(wxTopLevelWindow* window, const wxBitmap& bitmap)
{
    if (window == nullptr)
        return;
    wxIcon icon;
    if (bitmap.IsOk())
        icon.CopyFromBitmap(bitmap);
    window->SetIcon(icon);
}

void Wx::setZephraIcon(wxTopLevelWindow* window)
{
    setIcon(window, convertMemoryToBitmap(Resources::APPLICATION_ICON, Resources::APPLICATION_ICON_SIZE,
                                          wxBITMAP_TYPE_ANY));
}

} // namespace Nolvex
