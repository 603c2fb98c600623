// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Press.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"

namespace Nolvex::Wx::Detail {

/// One of the two arrows of a Spinner. The spinner handles the events of the mouse and ends the press; the
/// arrow knows only its look and whether it is pressed.
class SpinnerArrow : public StaticBitmap
{
public:
    enum class Look : int
    {
        NORMAL = 0,
        HOVERED = 1,
        PRESSED = 2,
    };

    SpinnerArrow(wxWindow* spinner, bool up);
    ~SpinnerArrow() override;

    bool isUp() const { return m_up; }

    Press& press() { return m_press; }

    bool isHeld() const { return m_press.isHeld(); }

    void show(Look look);

private:
    bool m_up;
    Press m_press{this};
};

} // namespace Nolvex::Wx::Detail
