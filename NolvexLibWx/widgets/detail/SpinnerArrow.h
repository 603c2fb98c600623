// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Press.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"

namespace Nolvex::Wx::Detail {

/// One of the two arrows of a Spinner. The spinner handles the events of the mouse and ends the press; the
/// arrow knows only its look and whether it is pressed.
class SpinnerArrow : public StaticBitmap
{
public:
    using Look = Spinner::ArrowLook;

    SpinnerArrow(wxWindow* spinner, bool up);
    ~SpinnerArrow() override;

    bool isUp() const { return m_up; }

    Press& press() { return m_press; }

    bool isHeld() const { return m_press.isHeld(); }

    void show(Look look) { setBitmap(picture(m_up, look)); }

    /// All spinners share the pictures, which are decoded when the first spinner is made.
    static const wxBitmap& picture(bool up, Look look);

private:
    bool m_up;
    Press m_press{this};
};

} // namespace Nolvex::Wx::Detail
