// SPDX-License-Identifier: MIT
#include "apps/viewer/ImageView.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/dcbuffer.h>

namespace Nolvex::Viewer {

namespace {

constexpr int SCROLL_STEP = 16;

} // namespace

ImageView::ImageView(wxWindow* parent, const wxBitmap& bitmap)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxHSCROLL | wxVSCROLL | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      TooltipWindow(this),
      m_bitmap(bitmap)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground));
    SetScrollRate(SCROLL_STEP, SCROLL_STEP);
    SetVirtualSize(bitmapSize());
    Bind(wxEVT_PAINT, &ImageView::onPaint, this);
}

void ImageView::setBitmap(const wxBitmap& bitmap)
{
    m_bitmap = bitmap;
    SetVirtualSize(bitmapSize());
    Scroll(0, 0);
    Refresh();
}

wxSize ImageView::bitmapSize() const
{
    return m_bitmap.IsOk() ? m_bitmap.GetSize() : wxSize(0, 0);
}

wxPoint ImageView::bitmapOrigin() const
{
    const wxSize room = GetClientSize() - bitmapSize();
    const wxPoint scrolled = CalcUnscrolledPosition({0, 0});
    return {room.x > 0 ? room.x / 2 : -scrolled.x, room.y > 0 ? room.y / 2 : -scrolled.y};
}

void ImageView::onPaint(wxPaintEvent& /*event*/)
{
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(GetBackgroundColour());
    dc.Clear();
    // Only the part in view: a bitmap may be larger than what the window system can draw at once.
    const wxPoint origin = bitmapOrigin();
    const wxRect visible = wxRect(-origin, GetClientSize()).Intersect(wxRect(bitmapSize()));
    if (!visible.IsEmpty())
        dc.DrawBitmap(m_bitmap.GetSubBitmap(visible), origin + visible.GetTopLeft());
    m_painted = true;
}

} // namespace Nolvex::Viewer
