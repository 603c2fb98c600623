// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CrispLines.h"

namespace Nolvex {

// GDI draws cosmetic pens exactly by itself.

Platform::CrispLines::CrispLines(wxDC& dc) : m_dc(dc)
{
}

Platform::CrispLines::~CrispLines() = default;

void Platform::CrispLines::setPen(wxPen pen)
{
    m_dc.SetPen(pen);
}

void Platform::CrispLines::drawLine(wxPoint from, wxPoint to)
{
    m_dc.DrawLine(from, to);
}

void Platform::CrispLines::drawRectangle(const wxRect& rect)
{
    if (rect.width < 1 || rect.height < 1)
        return;
    m_dc.DrawRectangle(rect);
}

} // namespace Nolvex
