// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/widgets/TextControl.h"

namespace Nolvex::Picker {

/// A field for a colour such as "#804020". A text that is no colour is marked and explained by a tooltip.
/// When the field loses the focus, such a text gives way to the last colour.
class HexField : public Wx::TextControl
{
public:
    /// `onChange` is called with each colour that the user types.
    HexField(wxWindow* parent, const Rgb& color, Function<void(const Rgb&)> onChange);
    ~HexField() override;

    /// Shows the colour and calls nothing. A text that the user is just typing stays as it is.
    void setColor(const Rgb& color);

    /// True while the user has typed something that is no colour.
    bool isBad() const { return m_bad; }

    void applySkin(const Wx::GuiSkin& skin) override;

private:
    void mark(bool bad);
    void onText(wxCommandEvent& event);
    void onFocusLost(wxFocusEvent& event);

    Rgb m_color;
    Function<void(const Rgb&)> m_onChange;
    bool m_bad = false;
    bool m_typing = false; // while `m_onChange` runs
};

} // namespace Nolvex::Picker
