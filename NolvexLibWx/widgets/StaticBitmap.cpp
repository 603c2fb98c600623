// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/StaticBitmap.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/paint/DensePixels.h"

#include <wx/dcclient.h>

namespace Nolvex {

Wx::StaticBitmap::StaticBitmap(wxWindow* parent, int id, const wxBitmap& bitmap)
    : wxPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE), m_bitmap(bitmap)
{
    SetInitialSize(screenSize(m_bitmap));
    Bind(wxEVT_PAINT, &StaticBitmap::onPaint, this);
    describeAs<LabelledAccount, AccessibleRole::IMAGE>(*this);
}

Wx::StaticBitmap::~StaticBitmap() = default;

void Wx::StaticBitmap::setBitmap(const wxBitmap& bitmap)
{
    m_bitmap = bitmap;
    Refresh(true);
}

void Wx::StaticBitmap::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    if (m_bitmap.IsOk())
        dc.DrawBitmap(m_bitmap, 0, 0, false);
}

} // namespace Nolvex
