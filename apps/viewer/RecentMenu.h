// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/Workspace.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxFrame;
class WXDLLIMPEXP_FWD_CORE wxMenu;

namespace Nolvex::Viewer {

/// The menu of the files that were opened last, and what keeps it up to date: pictures that are shown join
/// it.
class RecentMenu : private Noncopyable
{
public:
    /// Appends the menu to the first menu of the window's menu bar. `open` is called with the file that the
    /// user has chosen. Window, workspace and settings must outlive this object.
    RecentMenu(wxFrame& window, Workspace& workspace, Settings& settings,
               const Function<void(const Io::Path&)>& open);

private:
    void update();

    Settings& m_settings;
    wxMenu* m_menu; // owned by the menu bar
    Array<Io::Path> m_files;
};

} // namespace Nolvex::Viewer
