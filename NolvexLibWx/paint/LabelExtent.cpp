// SPDX-License-Identifier: MIT
#include "NolvexLibWx/paint/LabelExtent.h"

#include <wx/arrstr.h>
#include <wx/control.h>

#include <algorithm>

namespace Nolvex {

wxSize labelExtent(const wxControl& control)
{
    const int lineHeight = control.GetCharHeight();
    wxSize size(0, 0);
    for (const wxString& line : wxSplit(control.GetLabel(), '\n', '\0')) {
        const wxSize extent = control.GetTextExtent(line);
        size = {std::max(size.x, extent.x), size.y + std::max(extent.y, lineHeight)};
    }
    return size;
}

} // namespace Nolvex
