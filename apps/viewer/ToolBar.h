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

/// The viewer's row of buttons, with a link at its end. A click on a button or on the link calls `run` with
/// its command.
class ToolBar : public wxPanel
{
public:
    ToolBar(wxWindow* parent, const Function<void(Command)>& run);

    /// Sets the state of the log's button, and does not call `run`.
    void setLogShown(bool shown);

    void setTooltips(bool wanted);

private:
    Wx::Button* addButton(const wxString& label, Command command);

    Function<void(Command)> m_run;
    wxBoxSizer* m_row;
    Wx::Button* m_log = nullptr;
};

} // namespace Nolvex::Viewer
