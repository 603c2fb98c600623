// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ViewMarks.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/viewer/view/ColorLegend.h"
#include "apps/viewer/view/ImageView.h"
#include "apps/viewer/view/PixelCursor.h"
#include "apps/viewer/view/PixelNumbers.h"

#include <wx/brush.h>
#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/pen.h>

#include <algorithm>
#include <cmath>

namespace Nolvex::Viewer {

namespace {

const wxColour FRAME_COLOUR(128, 128, 128);
constexpr int MIN_CURSOR_SIDE = 9; // design units

// Windows and GTK cannot draw rectangles of any size.
wxRect drawable(const wxRect& rect, const wxRect& area)
{
    wxRect around = area;
    around.Inflate(2);
    return rect.Intersect(around);
}

} // namespace

ViewMarks::ViewMarks(const ImageView& view, wxDC& dc)
    : m_view(view),
      m_dc(dc),
      m_area(view.GetClientSize()),
      m_dense(std::max(static_cast<int>(view.GetContentScaleFactor()), 1))
{}

double ViewMarks::scale() const
{
    return m_view.scale() / m_dense;
}

wxRealPoint ViewMarks::placeOf(const Picture& picture) const
{
    const wxRealPoint place = imagePlace(picture, m_view.scale(), m_view.transform().origin());
    return {place.x / m_dense, place.y / m_dense};
}

wxRect ViewMarks::rectOf(const wxRealPoint& place, const wxRealPoint& size) const
{
    const auto rounded = [](double number) { return static_cast<int>(std::lround(number)); };
    const wxPoint first(rounded(place.x), rounded(place.y));
    const wxPoint end(rounded(place.x + size.x * scale()), rounded(place.y + size.y * scale()));
    return {first.x, first.y, std::max(end.x - first.x, 1), std::max(end.y - first.y, 1)};
}

void ViewMarks::drawNumbers() const
{
    if (!hasRoomForNumbers(scale()))
        return;
    setNumberFont(m_dc, scale());
    const int divider = m_view.dividerPosition().value_or(m_area.width);
    drawNumbersOf(*m_view.picture(), {0, 0, divider, m_area.height});
    if (m_view.comparison())
        drawNumbersOf(*m_view.comparison(), {divider, 0, m_area.width - divider, m_area.height});
}

void ViewMarks::drawNumbersOf(const Picture& picture, const wxRect& area) const
{
    if (area.IsEmpty())
        return;
    const wxDCClipper clipper(m_dc, area);
    Viewer::drawNumbers(m_dc, picture.image(), m_view.display(), {scale(), placeOf(picture)}, area);
}

void ViewMarks::drawFrame() const
{
    const Picture& picture = *m_view.picture();
    if (picture.origin() == Pixel{0, 0} && picture.frameSize() == picture.size())
        return;
    const wxPoint origin = m_view.transform().origin();
    wxRect frame = rectOf({origin.x / m_dense, origin.y / m_dense},
                          wxRealPoint(picture.frameSize().x, picture.frameSize().y));
    frame.Inflate(1); // the line covers no pixel of the frame
    m_dc.SetPen(FRAME_COLOUR);
    m_dc.SetBrush(*wxTRANSPARENT_BRUSH);
    m_dc.DrawRectangle(drawable(frame, m_area));
}

void ViewMarks::drawSelection() const
{
    const Optional<wxRect>& selection = m_view.selection();
    if (!selection)
        return;
    const wxRealPoint image = placeOf(*m_view.picture());
    wxRect rect = rectOf({image.x + selection->x * scale(), image.y + selection->y * scale()},
                         wxRealPoint(selection->width, selection->height));
    rect.Inflate(1);
    rect = drawable(rect, m_area);
    m_dc.SetBrush(*wxTRANSPARENT_BRUSH);
    m_dc.SetPen(*wxWHITE_PEN);
    m_dc.DrawRectangle(rect);
    m_dc.SetPen(wxPen(*wxBLACK, 1, wxPENSTYLE_SHORT_DASH));
    m_dc.DrawRectangle(rect);
}

void ViewMarks::drawPixelCursor() const
{
    wxRect rect = m_view.pixelCursor().area();
    if (rect.IsEmpty())
        return;
    // The frame of a small pixel is larger than the pixel, so that it can be found.
    rect.Inflate(std::max((Wx::scaleByDpi(MIN_CURSOR_SIDE) - std::min(rect.width, rect.height)) / 2, 1));
    m_dc.SetBrush(*wxTRANSPARENT_BRUSH);
    m_dc.SetPen(*wxWHITE_PEN);
    m_dc.DrawRectangle(rect);
    rect.Inflate(1);
    m_dc.SetPen(*wxBLACK_PEN);
    m_dc.DrawRectangle(rect);
}

void ViewMarks::drawDivider() const
{
    const Optional<int> divider = m_view.dividerPosition();
    if (!divider)
        return;
    const int x = std::clamp(*divider, 0, std::max(m_area.width - 1, 0));
    m_dc.SetPen(*wxWHITE_PEN);
    m_dc.DrawLine(x, 0, x, m_area.height);
    m_dc.SetPen(*wxBLACK_PEN);
    m_dc.DrawLine(x + 1, 0, x + 1, m_area.height);
}

void ViewMarks::drawLegend() const
{
    if (m_view.display().falseColor != FalseColor::OFF)
        Viewer::drawLegend(m_dc, m_view.display(), legendRect(m_area));
}

void ViewMarks::drawFocusMark() const
{
    m_dc.SetPen(wxPen(Wx::toWxColour(Wx::GuiSkin::DEFAULT().highlight), 1, wxPENSTYLE_DOT));
    m_dc.SetBrush(*wxTRANSPARENT_BRUSH);
    m_dc.DrawRectangle(m_area);
}

} // namespace Nolvex::Viewer
