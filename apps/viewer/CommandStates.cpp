// SPDX-License-Identifier: MIT
#include "apps/viewer/CommandStates.h"

#include "apps/viewer/ToolBar.h"
#include "apps/viewer/ViewOptions.h"
#include "apps/viewer/Workspace.h"

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

void CommandStates::enableFor(const Workspace& workspace)
{
    const OpenPicture* const shown = workspace.current();
    for (const Command command : {SAVE_AS, SAVE_VIEW, CLOSE_PICTURE, SET_REFERENCE})
        enable(command, shown != nullptr);
    enable(RELOAD, shown != nullptr && shown->canBeReadAgain());
    for (const Command command : {NEXT_PICTURE, PREVIOUS_PICTURE})
        enable(command, workspace.neighbour(1).has_value());
}

} // namespace Nolvex::Viewer
