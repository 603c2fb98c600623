// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/ColorPickerButtonDropTarget.h"

#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/detail/RgbDataObject.h"

namespace Nolvex {

namespace {

// wxWidgets processes pending events where nothing catches exceptions.
void takeDroppedColor(Wx::ColorPickerButton& button, const Rgb& color)
{
    try {
        button.setColor(color, true);
    } catch (...) {
        wxEvtHandler::WXConsumeException();
    }
}

} // namespace

Wx::ColorPickerButtonDropTarget::ColorPickerButtonDropTarget(ColorPickerButton& button)
    : m_button(button), m_data(new RgbDataObject)
{
    SetDataObject(m_data);
    SetDefaultAction(wxDragCopy);
}

wxDragResult Wx::ColorPickerButtonDropTarget::OnData(wxCoord /*x*/, wxCoord /*y*/, wxDragResult suggested)
{
    m_data->clear();
    // On GTK GetData succeeds even if the data object has refused the data.
    if (!GetData() || !m_data->color())
        return wxDragNone;
    // The event dies with the button.
    m_button.CallAfter([&button = m_button, color = *m_data->color()] { takeDroppedColor(button, color); });
    return suggested;
}

} // namespace Nolvex
