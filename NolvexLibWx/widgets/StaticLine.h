// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/Export.h"

#include <wx/colour.h>
#include <wx/panel.h>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Wx {

/// A separator of stripes of one pixel, one a colour: fixed to that thickness across (not scaled by DPI),
/// free along its length, which layout gives it. Drawn to a part of its length, and then twice as bright, it
/// serves as a level bar.
///
/// An orientation other than wxHORIZONTAL and wxVERTICAL is a programming error (StopException).
class NOLVEXLIBWX_EXPORT StaticLine : public wxPanel
{
public:
    /// A dark stripe and a light one, which look engraved.
    StaticLine(wxWindow* parent, wxOrientation orientation);

    /// `colours` from the top or from the left; none makes a line of no thickness. `lengthScale` as in
    /// setLengthScale.
    StaticLine(wxWindow* parent, wxOrientation orientation, ArrayView<const RgbBytes> colours,
               float lengthScale = 1.0f);
    ~StaticLine() override;

    /// The part of the length that is drawn, clamped to 0 to 1; NaN is 0. Repaints at once.
    void setLengthScale(float scale);

    float lengthScale() const { return m_lengthScale; }

    wxOrientation orientation() const { return m_orientation; }

    /// A separator takes no focus, neither by a click nor by the Tab key.
    bool AcceptsFocus() const override { return false; }

    bool AcceptsFocusFromKeyboard() const override { return false; }

    /// Paints the stripes over the size of the DC, from its origin.
    static void draw(wxDC& dc, wxOrientation orientation, ArrayView<const wxColour> colours,
                     float lengthScale);

private:
    void fixThickness();
    void onPaint(wxPaintEvent& event);

    wxOrientation m_orientation;
    Array<wxColour> m_colours;
    float m_lengthScale = 1.0f;
};

} // namespace Nolvex::Wx
