// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/OskaBorder.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/paint/CrispLines.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/dcclient.h>
#include <wx/sizer.h>

#include <algorithm>

namespace Nolvex {

namespace {

constexpr int CHILD_MARGIN = 2;

wxPen solidPen(const RgbBytes& colour)
{
    return {Wx::toWxColour(colour), 1, wxPENSTYLE_SOLID};
}

} // namespace

OskaBorder::OskaBorder(wxWindow* parent, Flags<OskaBorderState> state, wxWindowID id, long style,
                       const wxString& name)
    : Platform::SelfPaintedPanel(parent, id, wxDefaultPosition, wxDefaultSize, style, name), m_state(state)
{
    Bind(wxEVT_PAINT, &OskaBorder::onPaint, this);
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { setHovered(false); });
    Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent&) { setHovered(true); });
    Wx::describeAs<Wx::LabelledAccount, Wx::AccessibleRole::BORDER>(*this);
}

OskaBorder::~OskaBorder() = default;

void OskaBorder::addChild(wxWindow* child)
{
    m_child = child;
    // The old sizer is deleted first, because a window that is framed again would still belong to it.
    SetSizer(nullptr);
    m_sizer = new wxBoxSizer(wxHORIZONTAL);
    m_sizer->Add(child, 1, wxEXPAND | wxALL, CHILD_MARGIN);
    SetSizerAndFit(m_sizer, true);
}

bool OskaBorder::Enable(bool enable)
{
    m_state.set(OskaBorderState::ENABLED, enable);
    return wxWindowBase::Enable(enable);
}

bool OskaBorder::AcceptsFocusFromKeyboard() const
{
    const wxWindowList& children = GetChildren();
    return std::any_of(children.begin(), children.end(),
                       [](const wxWindow* child) { return child->AcceptsFocusFromKeyboard(); });
}

void OskaBorder::setHovered(bool hovered)
{
    if (m_state.has(OskaBorderState::HOVERED) == hovered)
        return;
    m_state.set(OskaBorderState::HOVERED, hovered);
    Refresh(true, nullptr);
}

void OskaBorder::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, {{0, 0}, Wx::toPixel(dc.GetSize())}, m_state);
}

void OskaBorder::draw(wxDC& dc, const Bucket& rect, Flags<OskaBorderState> flags)
{
    const bool framed = !flags.has(OskaBorderState::NO_FRAME);
    const bool lit = flags.has(OskaBorderState::HOVERED) && flags.has(OskaBorderState::ENABLED);
    wxRect inner = Wx::toWxRect(rect);

    CrispLines lines(dc);
    dc.SetBrush(*wxStockGDI::GetBrush(wxStockGDI::BRUSH_TRANSPARENT));
    if (framed) {
        lines.setPen(OUTER());
        lines.drawRectangle(inner);
        inner = {inner.x + 1, inner.y + 1, inner.width - 2, inner.height - 2};
    }
    lines.setPen(lit ? SELECTED() : INNER());
    lines.drawRectangle(inner);
    if (!framed)
        return;

    // These lines start at absolute coordinates and end at the width and height, so they follow the bottom
    // edge only if the rectangle starts at the origin. The formulas must stay, because existing programs
    // depend on the pixels.
    lines.setPen(BOTTOM_OUTER());
    lines.drawLine({rect.min.x, rect.max.y - 1}, {rect.width(), rect.height() - 1});
    lines.setPen(BOTTOM_INNER());
    lines.drawLine({rect.min.x + 1, rect.max.y - 1}, {rect.width() - 1, rect.height() - 1});
}

wxPen OskaBorder::OUTER()
{
    return solidPen({54, 54, 54});
}

wxPen OskaBorder::INNER()
{
    return solidPen({37, 37, 37});
}

wxPen OskaBorder::BOTTOM_OUTER()
{
    return solidPen({70, 70, 70});
}

wxPen OskaBorder::BOTTOM_INNER()
{
    return solidPen({85, 85, 85});
}

wxPen OskaBorder::SELECTED()
{
    return solidPen(Wx::GuiSkin::DEFAULT().highlight);
}

} // namespace Nolvex
