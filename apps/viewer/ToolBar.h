// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "apps/viewer/Command.h"

#include <wx/panel.h>

class wxBoxSizer;

namespace Nolvex::Wx {

class Button;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The viewer's row of buttons, those of the table of commands, with a link at its end. A click on a button
/// or on the link calls `run` with its command.
class ToolBar : public wxPanel
{
public:
    ToolBar(wxWindow* parent, const Function<void(Command)>& run);

    /// Sets the button of the command, if there is one, and does not call `run`.
    void check(Command command, bool checked);

    void enable(Command command, bool enabled);

    void setTooltips(bool wanted);

private:
    void addButton(const CommandInfo& info);
    Wx::Button* buttonOf(Command command) const;

    Function<void(Command)> m_run;
    wxBoxSizer* m_row;
};

} // namespace Nolvex::Viewer
