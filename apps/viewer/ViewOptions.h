// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "apps/viewer/Command.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class CheckBox;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// What can be chosen about the way the picture is shown: check boxes, each of which tells its command when
/// the user changes it.
class ViewOptions : public wxPanel
{
public:
    ViewOptions(wxWindow* parent, const Function<void(Command)>& run);

    // They show how things are and tell nobody.

    void setLogShown(bool shown);
    void setTooltips(bool wanted);
    void setLightSurround(bool light);

private:
    Wx::CheckBox* m_log;
    Wx::CheckBox* m_tooltips;
    Wx::CheckBox* m_lightSurround;
};

} // namespace Nolvex::Viewer
