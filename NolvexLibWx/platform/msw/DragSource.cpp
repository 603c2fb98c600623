// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DragSource.h"

#include <wx/dnd.h>

namespace Nolvex {

void Platform::dragFrom(wxWindow& window, wxDataObject& data)
{
    wxDropSource(data, &window).DoDragDrop(wxDrag_CopyOnly);
}

} // namespace Nolvex
