// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "apps/viewer/Command.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class CheckBox;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The check boxes for the ways to show the picture. Each of them calls `run` with its command when the user
/// changes it.
class ViewOptions : public wxPanel
{
public:
    ViewOptions(wxWindow* parent, const Function<void(Command)>& run);

    // These functions set the check boxes and do not call `run`.

    void setLogShown(bool shown);
    void setTooltips(bool wanted);
    void setLightSurround(bool light);

private:
    Wx::CheckBox* m_log;
    Wx::CheckBox* m_tooltips;
    Wx::CheckBox* m_lightSurround;
};

} // namespace Nolvex::Viewer
