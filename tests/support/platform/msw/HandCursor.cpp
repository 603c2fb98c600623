// SPDX-License-Identifier: MIT
#include "support/HandCursor.h"

#include <wx/cursor.h>
#include <wx/window.h>

namespace Nolvex {

bool Tests::hasHandCursor(const wxWindow* window)
{
    const wxCursor cursor = window->GetCursor();
    return cursor.IsOk() && cursor.GetHandle() == wxCursor(wxCURSOR_HAND).GetHandle();
}

} // namespace Nolvex
