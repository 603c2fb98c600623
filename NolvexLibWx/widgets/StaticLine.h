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

/// A separator made of stripes, one for each colour. A stripe is one pixel thick at every DPI; layout decides
/// about the length. A line that is drawn to a part of its length only, and then twice as bright, serves as a
/// level bar.
///
/// An orientation other than wxHORIZONTAL and wxVERTICAL is a programming error (StopException).
class NOLVEXLIBWX_EXPORT StaticLine : public wxPanel
{
public:
    /// Makes a line of a dark and a light stripe, which looks engraved.
    StaticLine(wxWindow* parent, wxOrientation orientation);

    /// The stripes have the colours from the top or from the left. Without colours the line has no thickness.
    /// See setLengthScale() for the scale.
    StaticLine(wxWindow* parent, wxOrientation orientation, ArrayView<const RgbBytes> colours,
               float lengthScale = 1.0f);
    ~StaticLine() override;

    /// Sets the part of the length that is drawn, from 0 to 1, and repaints at once. Other values are
    /// clamped, and NaN becomes 0.
    void setLengthScale(float scale);

    float lengthScale() const { return m_lengthScale; }

    wxOrientation orientation() const { return m_orientation; }

    /// A separator takes no focus, neither by a click nor by the Tab key.
    bool AcceptsFocus() const override { return false; }

    bool AcceptsFocusFromKeyboard() const override { return false; }

    /// Draws the stripes from the origin of the DC across its size.
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
