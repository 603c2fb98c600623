// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/MouseCapture.h"
#include "NolvexLibWx/widgets/Focusable.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

class wxDC;

namespace Nolvex::Picker {

/// A horizontal slider for one number of a colour, from 0 to a maximum. Its track shows the colour that each
/// number would give.
///
/// The user drags the knob, clicks anywhere in the track, or presses the arrow keys (one step), Page Up and
/// Page Down (ten steps), Home or End while the slider has the focus.
class ChannelSlider : public OskaBorder, public Wx::Focusable
{
public:
    struct Range
    {
        float maximum = 1.0f;
        float step = 0.01f;
    };

    /// `colorAt` returns the colour of the track for a number. `onChange` is called with each number that the
    /// user chooses.
    ChannelSlider(wxWindow* parent, const String& name, const Range& range, Function<Rgb(float)> colorAt,
                  Function<void(float)> onChange);
    ~ChannelSlider() override;

    float number() const { return m_number; }

    /// Moves the knob and calls nothing. A number beyond the range is shown at the end of the track, and NaN
    /// as 0.
    void setNumber(float number);

    /// Changes the number as the user does. A number beyond the range, or NaN, can be changed to the number
    /// that the slider shows in its place.
    void changeByUser(float number);

    /// Returns the distance of the knob's middle from the left edge of the slider.
    int knobPosition() const;

    bool AcceptsFocusFromKeyboard() const override { return true; }

private:
    class Account;

    wxRect track() const;
    float numberAt(int x) const;
    void dragTo(int x);
    void step(float change);
    void paint(wxDC& dc) const;
    void paintKnob(wxDC& dc) const;
    void onPress(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onRelease(wxMouseEvent& event);
    void onFocusChanged(wxFocusEvent& event);
    void onKey(wxKeyEvent& event);

    String m_name;
    Range m_range;
    Function<Rgb(float)> m_colorAt;
    Function<void(float)> m_onChange;
    float m_number = 0.0f; // within the range
    float m_given = 0.0f;  // the same number before it was clamped
    Wx::MouseCapture m_capture{this};
};

} // namespace Nolvex::Picker
