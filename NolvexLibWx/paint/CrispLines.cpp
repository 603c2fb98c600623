// SPDX-License-Identifier: MIT
#include "NolvexLibWx/paint/CrispLines.h"

#include "NolvexLibWx/paint/DensePixels.h"

#include <wx/graphics.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace Nolvex {

namespace {

/// Returns the coordinate across a slanted line. GDI rounds halves to the smaller coordinate.
int roundedHalfDown(int numerator, int denominator)
{
    return static_cast<int>(std::ceil(static_cast<double>(numerator) / denominator - 0.5));
}

/// Returns the pixel at a distance of `step` pixels from the start of the line from `from` to `to`.
wxPoint pixelOfLine(wxPoint from, wxPoint to, int step)
{
    const int width = to.x - from.x;
    const int height = to.y - from.y;
    const int length = std::max(std::abs(width), std::abs(height));
    return {roundedHalfDown(from.x * length + step * width, length),
            roundedHalfDown(from.y * length + step * height, length)};
}

} // namespace

CrispLines::CrispLines(wxDC& dc) : m_dc(dc)
{
    if (wxGraphicsContext* context = dc.GetGraphicsContext()) {
        m_previousMode = context->GetAntialiasMode();
        context->SetAntialiasMode(wxANTIALIAS_NONE);
    }
}

CrispLines::~CrispLines()
{
    if (wxGraphicsContext* context = m_dc.GetGraphicsContext())
        context->SetAntialiasMode(static_cast<wxAntialiasMode>(m_previousMode));
}

void CrispLines::setPen(wxPen pen)
{
    if (m_dc.GetGraphicsContext()) {
        // Round caps, the default of wxWidgets, reach beyond the end of a line; round joins miss the corners.
        pen.SetCap(wxCAP_BUTT);
        pen.SetJoin(wxJOIN_MITER);
    }
    m_dc.SetPen(pen);
}

void CrispLines::drawLine(wxPoint from, wxPoint to)
{
    if (from.x == to.x || from.y == to.y)
        drawStraight(from, to);
    else if (m_dc.GetGraphicsContext())
        strokeSlanted(from, to);
    else
        m_dc.DrawLine(from, to);
}

void CrispLines::drawStraight(wxPoint from, wxPoint to)
{
    // Graphics contexts cover the pixels between the two coordinates, and so does wxWidgets on Windows, which
    // fills a rectangle instead of calling GDI. A line that leads to the left or upwards, such as from 30 to
    // 10, would have the pixels 29 down to 10 instead of 30 down to 11.
    if (to.x < from.x || to.y < from.y) {
        const wxPoint step(to.x < from.x ? 1 : 0, to.y < from.y ? 1 : 0);
        std::swap(from, to);
        from += step;
        to += step;
    }
    // Along the line, the ends already are at the edges of pixels.
    const bool isHorizontal = from.y == to.y;
    const DensePixelOffset offset(m_dc.GetGraphicsContext(), {isHorizontal ? 0 : 1, isHorizontal ? 1 : 0});
    m_dc.DrawLine(from, to);
}

void CrispLines::strokeSlanted(wxPoint from, wxPoint to)
{
    const DensePixelOffset offset(m_dc.GetGraphicsContext(), {0, 1});
    const int length = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    for (int step = 0; step < length; ++step) {
        const wxPoint pixel = pixelOfLine(from, to, step);
        m_dc.DrawLine(pixel, pixel + wxPoint(1, 0));
    }
}

void CrispLines::drawRectangle(const wxRect& rect)
{
    if (rect.width < 1 || rect.height < 1)
        return;
    // An outline without an inside is drawn as a line, because the systems draw such thin rectangles
    // differently.
    if (rect.height == 1)
        drawLine(rect.GetTopLeft(), {rect.x + rect.width, rect.y});
    else if (rect.width == 1)
        drawLine(rect.GetTopLeft(), {rect.x, rect.y + rect.height});
    else
        drawOutline(rect);
}

void CrispLines::drawOutline(const wxRect& rect)
{
    const DensePixelOffset offset(m_dc.GetGraphicsContext());
    m_dc.DrawRectangle(rect);
}

void CrispLines::drawPoints(int count, const wxPoint* points)
{
    const DensePixelOffset offset(m_dc.GetGraphicsContext());
    m_dc.DrawPolygon(count, points, 0, 0, wxWINDING_RULE);
}

} // namespace Nolvex
