// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dnd.h>

namespace Nolvex::Wx {

class ColorPickerButton;
class RgbDataObject;

/// Gives a colour that is dropped on a button to the button, as a change by the user. Nothing can be dropped
/// on a disabled button: both systems look for the window below the mouse among the enabled windows.
class ColorPickerButtonDropTarget : public wxDropTarget
{
public:
    /// The button owns the drop target.
    explicit ColorPickerButtonDropTarget(ColorPickerButton& button);

    /// The button takes the colour and calls its callbacks a moment later: the callbacks may destroy the
    /// button, and with it this object, which wxWidgets goes on using; they may open a dialog, while the
    /// program that the colour comes from waits for the end of the drop.
    wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult suggested) override;

private:
    ColorPickerButton& m_button;
    RgbDataObject* m_data; // owned by the base class
};

} // namespace Nolvex::Wx
