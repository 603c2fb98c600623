// SPDX-License-Identifier: MIT
#include "support/HandCursor.h"

#include <wx/cursor.h>
#include <wx/window.h>

#include <gtk/gtk.h>

namespace Nolvex {

bool Tests::hasHandCursor(const wxWindow* window)
{
    const wxCursor cursor = window->GetCursor();
    return cursor.IsOk() && gdk_cursor_get_cursor_type(cursor.GetCursor()) ==
                                gdk_cursor_get_cursor_type(wxCursor(wxCURSOR_HAND).GetCursor());
}

} // namespace Nolvex
