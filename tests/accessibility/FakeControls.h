// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"

#include <wx/panel.h>

namespace Nolvex::Tests {

/// Holds a number from 0 to 10, which only assistive technology can change.
class FakeSpinner : public wxPanel
{
public:
    FakeSpinner(wxWindow* parent, Function<void(double)> onChange);

    double value() const { return m_value; }

    void changeValue(double value);

private:
    Function<void(double)> m_onChange;
    double m_value = 3;
};

} // namespace Nolvex::Tests
