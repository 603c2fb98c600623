// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/RgbBytes.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/DisplaySettings.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class ColorPickerButton;
class ComboBox;
class Spinner;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The ways to show the picture: check boxes, which call `run` with their command when the user changes them,
/// the colour of the surround, and below them the exposure in stops and the channel, which call `display`.
class ViewOptions : public wxPanel
{
public:
    /// `trySurround` is called with each colour that the user tries for the surround. When the user
    /// has chosen a colour, `endTrying` is called with true, and `surround` returns that colour. After that,
    /// and also when a picker was cancelled, `endTrying` is called with false.
    ViewOptions(wxWindow* parent, const Function<void(Command)>& run,
                const Function<void(const DisplaySettings&)>& display,
                const Function<void(const RgbBytes&)>& trySurround, const Function<void(bool)>& endTrying);

    /// The colour around the picture while the light surround is off. At first it is the dark background of
    /// the skin.
    RgbBytes surround() const;

    /// Sets the check box of the command, if there is one, and does not call `run`.
    void check(Command command, bool checked);

private:
    void addSurround(wxSizer& row, const Function<void(const RgbBytes&)>& trySurround,
                     const Function<void(bool)>& endTrying);
    wxSizer* makeDisplayRow();

    Function<void(const DisplaySettings&)> m_display;
    DisplaySettings m_settings;
    Wx::ColorPickerButton* m_surround = nullptr;
    Wx::Spinner* m_exposure = nullptr;
    Wx::ComboBox* m_channel = nullptr;
};

} // namespace Nolvex::Viewer
