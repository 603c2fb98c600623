// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Press.h"
#include "NolvexLibWx/widgets/Focusable.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

class wxDC;

namespace Nolvex::Picker {

/// A rectangle in a colour. A click on the swatch, or Space while the swatch has the focus, takes the colour.
/// The arrow keys go to the neighbours.
class ColorSwatch : public OskaBorder, public Wx::Focusable
{
public:
    /// Without `onTake` the swatch only shows its colour. `size` is in design units.
    ColorSwatch(wxWindow* parent, const String& name, const wxSize& size, const Rgb& color,
                Function<void()> onTake);
    ~ColorSwatch() override;

    const Rgb& color() const { return m_color; }

    void setColor(const Rgb& color);

    bool AcceptsFocus() const override;
    bool AcceptsFocusFromKeyboard() const override;

private:
    class Account;

    void paint(wxDC& dc) const;
    void onPress(wxMouseEvent& event);
    void onRelease(wxMouseEvent& event);
    void onFocusChanged(wxFocusEvent& event);
    void onKey(wxKeyEvent& event);

    String m_name;
    Rgb m_color;
    Function<void()> m_onTake;
    Wx::Press m_press{this};
};

} // namespace Nolvex::Picker
