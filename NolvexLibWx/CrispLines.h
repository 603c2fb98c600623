// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/platform/ExactStrokes.h"

#include <wx/dc.h>

namespace Nolvex {

/// Draws the lines of one pixel that borders and marks are made of, exactly and alike on every system: every
/// pixel whole, ends exclusive, outlines of any size. One at a time on a DC.
class CrispLines
{
public:
    explicit CrispLines(wxDC& dc) : m_dc(dc), m_exact(dc) {}

    void setPen(const wxPen& pen) { m_dc.SetPen(Platform::ExactStrokes::exactPen(pen)); }

    /// Without the pixel at its end, as the toolkit's lines are.
    void drawLine(wxPoint from, wxPoint to) { m_dc.DrawLine(from, to); }

    /// The outline; a rectangle without width or height has none.
    void drawRectangle(const wxRect& rect);

private:
    wxDC& m_dc;
    Platform::ExactStrokes m_exact;
};

} // namespace Nolvex
