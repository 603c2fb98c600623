// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Stack.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_BASE wxArrayString;
class WXDLLIMPEXP_FWD_CORE wxDialog;
class WXDLLIMPEXP_FWD_CORE wxFileDialog;

namespace Nolvex::Platform {

/// Makes the filters of the dialog match as those of Windows do: whatever the case of the letters, and all
/// files for "*.*".
void widenFilters(wxFileDialog& dialog);

/// Makes a new dialog of GTK open in the nearest existing folder if `folder` does not exist. It would list
/// the recently used files instead. Windows opens its usual folder.
void startInExistingFolder(wxDialog& dialog, const Io::Path& folder);

/// Returns the paths that the user has chosen in `dialog`, a wxFileDialog or wxDirDialog. `paths` are the
/// same paths as wxWidgets reports them, which loses names that are not UTF-8 on Linux.
Stack<Io::Path> chosenPaths(const wxDialog& dialog, const wxArrayString& paths);

} // namespace Nolvex::Platform
