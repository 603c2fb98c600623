// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/Spinner.h"

namespace Nolvex::Picker {

/// A spinner for one number of a colour. In place of NaN and of a number beyond the bounds it shows a text
/// such as "nan" or "> 1000" until the user changes the number.
class ChannelSpinner : public Wx::Spinner
{
public:
    struct Range
    {
        float minimum = 0.0f;
        float maximum = 1.0f;
        float step = 0.01f;
        int digits = 4;
    };

    /// A right click on an arrow returns to `initial`. `onChange` is called with each number that the user
    /// chooses, which lies within the range.
    ChannelSpinner(wxWindow* parent, const String& name, const Range& range, float initial,
                   Function<void(float)> onChange);
    ~ChannelSpinner() override;

    /// Shows the number and calls nothing. Does nothing while the spinner reports a change, since the spinner
    /// shows the new number already.
    void setNumber(float number);

private:
    void allowUpTo(float maximum);
    void onValue(float number);
    void onEnter(wxCommandEvent& event);
    void onFocusLost(wxFocusEvent& event);
    void commitTypedText();

    Range m_range;
    Function<void(float)> m_onChange;
    float m_default;
    float m_number;
    String m_textBeyond;       // empty while the number is within the range
    bool m_reporting = false;  // while `m_onChange` runs
    bool m_committing = false; // while the spinner reads a text that was typed in place of `m_textBeyond`
};

} // namespace Nolvex::Picker
