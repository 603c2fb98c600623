// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/DisplaySettings.h"
#include "apps/viewer/Preferences.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class ColorPickerButton;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

class DisplayOptions;

/// The ways to show the picture: check boxes, which call `run` with their command when the user changes them,
/// the colour of the surround, and below them the controls for DisplaySettings, which call `display`.
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

    /// Takes over the surround, the encoding and the checkerboard, and calls `display`.
    void setPreferences(const Preferences& preferences);

    void storePreferences(Preferences& preferences) const;

    /// Sets the check box of the command, if there is one, and does not call `run`.
    void check(Command command, bool checked);

    /// Offers the channels of a picture by their names (Picture::channels).
    void setChannels(const Array<String>& names);

private:
    void addSurround(wxSizer& row, const Function<void(const RgbBytes&)>& trySurround,
                     const Function<void(bool)>& endTrying);

    Wx::ColorPickerButton* m_surround = nullptr;
    DisplayOptions* m_display = nullptr;
};

} // namespace Nolvex::Viewer
