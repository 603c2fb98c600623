// SPDX-License-Identifier: MIT
#include "apps/viewer/FileDropTarget.h"

#include "NolvexLibWx/StringConversions.h"

namespace Nolvex::Viewer {

bool FileDropTarget::OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, const wxArrayString& names)
{
    Array<Io::Path> files;
    for (const wxString& name : names)
        files.emplace_back(Wx::toString(name));
    if (files.empty())
        return false;
    // The function may destroy the window, and with it this object.
    const Function<void(const Array<Io::Path>&)> open = m_open;
    open(files);
    return true;
}

} // namespace Nolvex::Viewer
