// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CrispLines.h"

#include <wx/graphics.h>

namespace Nolvex {

Platform::CrispLines::CrispLines(wxDC& dc) : m_dc(dc)
{
    if (wxGraphicsContext* context = dc.GetGraphicsContext()) {
        m_previousMode = context->GetAntialiasMode();
        context->SetAntialiasMode(wxANTIALIAS_NONE);
    }
}

Platform::CrispLines::~CrispLines()
{
    if (wxGraphicsContext* context = m_dc.GetGraphicsContext())
        context->SetAntialiasMode(static_cast<wxAntialiasMode>(m_previousMode));
}

void Platform::CrispLines::setPen(wxPen pen)
{
    pen.SetCap(wxCAP_BUTT);
    pen.SetJoin(wxJOIN_MITER);
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
    // A path without extent in one direction has no outline to stroke: the strip is a line.
    if (rect.height == 1)
        drawLine(rect.GetTopLeft(), {rect.x + rect.width, rect.y});
    else if (rect.width == 1)
        drawLine(rect.GetTopLeft(), {rect.x, rect.y + rect.height});
    else
        m_dc.DrawRectangle(rect);
}

} // namespace Nolvex
