// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/DisplaySettings.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class CheckBox;
class ComboBox;
class Spinner;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The ways to show the picture: check boxes, which call `run` with their command when the user changes them,
/// and below them the exposure in stops and the channel, which call `display`.
class ViewOptions : public wxPanel
{
public:
    ViewOptions(wxWindow* parent, const Function<void(Command)>& run,
                const Function<void(const DisplaySettings&)>& display);

    // These functions set the controls and call neither `run` nor `display`.

    void setLogShown(bool shown);
    void setTooltips(bool wanted);
    void setLightSurround(bool light);
    void setPixelProbe(bool active);

private:
    wxSizer* makeDisplayRow();

    Function<void(const DisplaySettings&)> m_display;
    DisplaySettings m_settings;
    Wx::CheckBox* m_log;
    Wx::CheckBox* m_tooltips;
    Wx::CheckBox* m_lightSurround;
    Wx::CheckBox* m_pixelProbe;
    Wx::Spinner* m_exposure = nullptr;
    Wx::ComboBox* m_channel = nullptr;
};

} // namespace Nolvex::Viewer
