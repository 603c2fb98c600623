// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/platform/ExactStrokes.h"

#include <wx/dc.h>

#include <array>
#include <cstddef>

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

    /// The outline and, in the DC's brush, the inside; the last point is the first one again.
    template<std::size_t COUNT>
    void drawPolygon(const std::array<wxPoint, COUNT>& points)
    {
        m_dc.DrawPolygon(static_cast<int>(COUNT), points.data(), 0, 0, wxWINDING_RULE);
    }

    /// The outline; a rectangle without width or height has none.
    void drawRectangle(const wxRect& rect);

private:
    wxDC& m_dc;
    Platform::ExactStrokes m_exact;
};

} // namespace Nolvex
