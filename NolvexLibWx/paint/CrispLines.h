// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dc.h>
#include <wx/pen.h>

#include <array>
#include <cstddef>

namespace Nolvex {

/// Draws the lines of one pixel that borders and marks consist of. The pixels are the same on every system:
/// each is covered wholly or not at all, and outlines may have any size. A DC must not have two objects of
/// this class at the same time.
///
/// GDI, by which Windows draws, covers whole pixels by itself. Graphics contexts, by which GTK draws, blend
/// the ends of a line with the pixels beside them, so their antialiasing is off while the object lives.
class CrispLines
{
public:
    explicit CrispLines(wxDC& dc);
    ~CrispLines();
    CrispLines(const CrispLines&) = delete;
    CrispLines& operator=(const CrispLines&) = delete;

    /// Sets the pen, one pixel wide, of the lines to come.
    void setPen(wxPen pen);

    /// Draws a line from the pixel `from` up to the pixel `to`, which is left out.
    void drawLine(wxPoint from, wxPoint to);

    /// Draws the outline and fills the inside with the brush of the DC. The last point repeats the first.
    template<std::size_t COUNT>
    void drawPolygon(const std::array<wxPoint, COUNT>& points)
    {
        drawPoints(static_cast<int>(COUNT), points.data());
    }

    /// Draws the outline, but nothing for a rectangle without width or height.
    void drawRectangle(const wxRect& rect);

private:
    void drawStraight(wxPoint from, wxPoint to);
    void strokeSlanted(wxPoint from, wxPoint to);
    void drawOutline(const wxRect& rect);
    void drawPoints(int count, const wxPoint* points);

    wxDC& m_dc;
    int m_previousMode = 0;
};

} // namespace Nolvex
