// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "apps/viewer/DisplaySettings.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class CheckBox;
class ComboBox;
class Spinner;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The controls for DisplaySettings: exposure, gamma, channel, encoding, false colour and its range, and the
/// checkerboard.
class DisplayOptions : public wxPanel
{
public:
    /// `onChange` is called with the new settings when the user has changed any of them.
    DisplayOptions(wxWindow* parent, Function<void(const DisplaySettings&)> onChange);

    const DisplaySettings& settings() const { return m_settings; }

    /// Offers the channels of a picture by their names, in the order of its pixel format. The usual names R,
    /// G, B and A are written out.
    void setChannels(const Array<String>& names);

    /// Shows and applies what is a matter of taste. The other settings stay.
    void setTaste(Encoding encoding, bool checkerboard);

private:
    wxSizer* makeFirstRow();
    wxSizer* makeSecondRow();
    Wx::Spinner* addSpinner(wxSizer& row, const String& label, float DisplaySettings::*setting, float max,
                            float step);
    Wx::ComboBox* addChoice(wxSizer& row, const String& label, int width, const Function<void(int)>& choose);
    void addLabel(wxSizer& row, const String& label);
    void chooseFalseColor(FalseColor kind);
    void showRange();
    void notify();

    Function<void(const DisplaySettings&)> m_onChange;
    DisplaySettings m_settings;
    Wx::ComboBox* m_channel = nullptr;
    Wx::ComboBox* m_encoding = nullptr;
    Wx::CheckBox* m_checkerboard = nullptr;
    Wx::Spinner* m_from = nullptr;
    Wx::Spinner* m_to = nullptr;
};

} // namespace Nolvex::Viewer
