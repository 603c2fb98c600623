// SPDX-License-Identifier: MIT
#include "apps/viewer/CommandStates.h"

#include "apps/viewer/ToolBar.h"
#include "apps/viewer/ViewOptions.h"

#include <wx/menu.h>

namespace Nolvex::Viewer {

void CommandStates::check(Command command, bool checked)
{
    m_menus.Check(command, checked);
    m_toolBar.check(command, checked);
    m_options.check(command, checked);
}

void CommandStates::enable(Command command, bool enabled)
{
    m_menus.Enable(command, enabled);
    m_toolBar.enable(command, enabled);
}

} // namespace Nolvex::Viewer
