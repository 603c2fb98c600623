// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/Command.h"

namespace Nolvex::Viewer {

class ToolBar;
class ViewOptions;
class Workspace;

/// Shows the states of commands everywhere at once: in the menus, on the buttons and on the check boxes.
class CommandStates
{
public:
    /// The menu bar and the windows must outlive this object.
    CommandStates(wxMenuBar& menus, ToolBar& toolBar, ViewOptions& options)
        : m_menus(menus), m_toolBar(toolBar), m_options(options)
    {}

    void check(Command command, bool checked);

    void enable(Command command, bool enabled);

    /// Enables the commands for the pictures that are open.
    void enableFor(const Workspace& workspace);

private:
    wxMenuBar& m_menus;
    ToolBar& m_toolBar;
    ViewOptions& m_options;
};

} // namespace Nolvex::Viewer
