// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dc.h>
#include <wx/pen.h>

namespace Nolvex::Platform {

/// While it lives, strokes on the DC cover whole pixels or none. GDI does that by itself; cairo, by which GTK
/// draws, blends the ends with what lies beside.
class ExactStrokes
{
public:
    explicit ExactStrokes(wxDC& dc);
    ~ExactStrokes();
    ExactStrokes(const ExactStrokes&) = delete;
    ExactStrokes& operator=(const ExactStrokes&) = delete;

    /// The pen whose lines of one pixel end, exclusively, where they are told to.
    static wxPen exactPen(wxPen pen);

private:
    wxDC& m_dc;
    int m_previousMode = 0;
};

} // namespace Nolvex::Platform
