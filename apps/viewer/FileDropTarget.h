// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"

#include <wx/dnd.h>

namespace Nolvex::Viewer {

/// Takes files that are dragged onto a window.
class FileDropTarget : public wxFileDropTarget
{
public:
    explicit FileDropTarget(const Function<void(const Array<Io::Path>&)>& open) : m_open(open) {}

    bool OnDropFiles(wxCoord x, wxCoord y, const wxArrayString& names) override;

private:
    Function<void(const Array<Io::Path>&)> m_open;
};

} // namespace Nolvex::Viewer
