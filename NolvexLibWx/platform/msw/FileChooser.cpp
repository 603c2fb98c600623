// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/FileChooser.h"

#include "NolvexLibWx/StringConversions.h"

#include <wx/arrstr.h>

namespace Nolvex {

void Platform::widenFilters(wxFileDialog& /*dialog*/) {}

void Platform::startInExistingFolder(wxDialog& /*dialog*/, const Io::Path& /*folder*/) {}

Stack<Io::Path> Platform::chosenPaths(const wxDialog& /*dialog*/, const wxArrayString& paths)
{
    Stack<Io::Path> chosen;
    for (const wxString& path : paths)
        chosen.push_back(Io::Path(Wx::toString(path)));
    return chosen;
}

} // namespace Nolvex
