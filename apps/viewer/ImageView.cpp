// SPDX-License-Identifier: MIT
#include "apps/viewer/ImageView.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/viewer/Development.h"

#include <wx/dcbuffer.h>
#include <wx/pen.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int SCROLL_STEP = 16;

} // namespace

ImageView::ImageView(wxWindow* parent, SharedPicture picture)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxHSCROLL | wxVSCROLL | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      TooltipWindow(this),
      m_picture(std::move(picture))
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground));
    SetScrollRate(SCROLL_STEP, SCROLL_STEP);
    SetVirtualSize(shownSize());
    Bind(wxEVT_PAINT, &ImageView::onPaint, this);
    Bind(wxEVT_SIZE, &ImageView::onSized, this);
    Bind(wxEVT_SET_FOCUS, &ImageView::onFocus, this);
    Bind(wxEVT_KILL_FOCUS, &ImageView::onFocus, this);
    AddFilter(this);
}

ImageView::~ImageView()
{
    RemoveFilter(this);
}

// Remembers whether the last key was Tab. A control that handles Tab itself shows that key to no other
// window.
int ImageView::FilterEvent(wxEvent& event)
{
    if (event.GetEventType() == wxEVT_CHAR_HOOK)
        m_tabPressed = static_cast<wxKeyEvent&>(event).GetKeyCode() == WXK_TAB;
    return Event_Skip;
}

void ImageView::setPicture(SharedPicture picture)
{
    m_picture = std::move(picture);
    m_developed = wxBitmap();
    SetVirtualSize(shownSize());
    Scroll(0, 0);
    Refresh();
}

void ImageView::setDisplay(const DisplaySettings& settings)
{
    if (settings == m_display)
        return;
    m_display = settings;
    m_developed = wxBitmap();
    Refresh();
}

void ImageView::setSurround(const RgbBytes& color)
{
    SetBackgroundColour(Wx::toWxColour(color));
    Refresh();
}

const wxBitmap& ImageView::bitmap() const
{
    return m_picture ? m_picture->bitmap() : wxNullBitmap;
}

Optional<Pixel> ImageView::pixelAt(const wxPoint& position) const
{
    const wxPoint offset = position - bitmapOrigin();
    if (!wxRect(shownSize()).Contains(offset) || !wxRect(GetClientSize()).Contains(position))
        return {};
    return Pixel{offset.x, offset.y} * pixelsPerUnit();
}

// Returns how many pixels of the picture are shown in each direction by one pixel of wxWidgets. A pixel of
// the picture is a pixel of the device.
int ImageView::pixelsPerUnit() const
{
    return std::max(static_cast<int>(GetContentScaleFactor()), 1);
}

wxSize ImageView::shownSize() const
{
    if (!bitmap().IsOk())
        return {0, 0};
    const int dense = pixelsPerUnit();
    const wxSize size = bitmap().GetSize();
    return {(size.x + dense - 1) / dense, (size.y + dense - 1) / dense};
}

// Pixels of the device may be smaller on the screen to which the window was moved.
void ImageView::onSized(wxSizeEvent& event)
{
    SetVirtualSize(shownSize());
    event.Skip();
}

wxPoint ImageView::bitmapOrigin() const
{
    const wxSize room = GetClientSize() - shownSize();
    const wxPoint scrolled = CalcUnscrolledPosition({0, 0});
    return {room.x > 0 ? room.x / 2 : -scrolled.x, room.y > 0 ? room.y / 2 : -scrolled.y};
}

void ImageView::onPaint(wxPaintEvent& /*event*/)
{
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(GetBackgroundColour());
    dc.Clear();
    // Only the visible part is drawn: a bitmap may be larger than the window system can draw at once.
    const wxPoint origin = bitmapOrigin();
    const wxRect visible = wxRect(-origin, GetClientSize()).Intersect(wxRect(shownSize()));
    if (const wxBitmap shown = visible.IsEmpty() ? wxBitmap() : visibleBitmap(visible); shown.IsOk())
        dc.DrawBitmap(shown, origin + visible.GetTopLeft());
    if (m_focusMark) {
        dc.SetPen(wxPen(Wx::toWxColour(Wx::GuiSkin::DEFAULT().highlight), 1, wxPENSTYLE_DOT));
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.DrawRectangle(wxRect(GetClientSize()));
    }
    m_painted = true;
}

// Returns the picture as it is shown in an area, in pixels of wxWidgets, of what the view can be scrolled
// over. With other settings than the usual ones, the result is kept until the area changes.
wxBitmap ImageView::visibleBitmap(const wxRect& area)
{
    const int dense = pixelsPerUnit();
    const wxRect part =
        wxRect(area.GetTopLeft() * dense, area.GetSize() * dense).Intersect(wxRect(bitmap().GetSize()));
    wxBitmap shown = m_display == DisplaySettings() ? bitmap().GetSubBitmap(part) : developedBitmap(part);
    if (shown.IsOk() && shown.GetScaleFactor() != dense)
        shown.SetScaleFactor(dense);
    return shown;
}

const wxBitmap& ImageView::developedBitmap(const wxRect& part)
{
    if (!m_developed.IsOk() || part != m_developedPart) {
        m_developed = developBitmap(m_picture->image(), m_display, part);
        m_developedPart = part;
    }
    return m_developed;
}

// After a click the line is not shown, because the user knows where the click went.
void ImageView::onFocus(wxFocusEvent& event)
{
    m_focusMark = event.GetEventType() == wxEVT_SET_FOCUS && m_tabPressed && !wxGetMouseState().LeftIsDown();
    Refresh();
    event.Skip();
}

} // namespace Nolvex::Viewer
