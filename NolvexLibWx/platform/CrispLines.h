// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dc.h>

namespace Nolvex::Platform {

/// While it lives, lines of one pixel drawn through it are exact on every system: every pixel whole, ends
/// exclusive. GTK draws through cairo, which by itself rounds the ends off and blends them with what lies
/// beside.
class CrispLines
{
public:
    explicit CrispLines(wxDC& dc);
    ~CrispLines();
    CrispLines(const CrispLines&) = delete;
    CrispLines& operator=(const CrispLines&) = delete;

    void setPen(wxPen pen);

    /// Without the pixel at its end, as the toolkit's lines are.
    void drawLine(wxPoint from, wxPoint to);

    /// The outline; a rectangle without width or height has none.
    void drawRectangle(const wxRect& rect);

private:
    wxDC& m_dc;
    int m_previousMode = 0;
};

} // namespace Nolvex::Platform
