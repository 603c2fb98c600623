// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/StaticLine.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/paint/CrispLines.h"

#include <wx/dcclient.h>
#include <wx/pen.h>

#include <algorithm>

namespace Nolvex {

namespace {

constexpr RgbBytes ENGRAVED[] = {{37, 37, 37}, {100, 100, 100}};

// Programs that catch the exception distinguish the two places by these numbers.
constexpr int CONSTRUCTION_PLACE = 39;
constexpr int PAINTING_PLACE = 80;

void requireOrientation(wxOrientation orientation, int place)
{
    if (orientation != wxHORIZONTAL && orientation != wxVERTICAL)
        Nolvex::Detail::throwStopException("widgets/StaticLine", place);
}

wxColour brightened(const wxColour& colour)
{
    const auto twice = [](unsigned char channel) {
        return static_cast<unsigned char>(std::min(2 * channel, 255));
    };
    return {twice(colour.Red()), twice(colour.Green()), twice(colour.Blue())};
}

int partOf(int length, float scale)
{
    return static_cast<int>(static_cast<float>(length) * scale);
}

} // namespace

Wx::StaticLine::StaticLine(wxWindow* parent, wxOrientation orientation)
    : StaticLine(parent, orientation, ENGRAVED)
{}

Wx::StaticLine::StaticLine(wxWindow* parent, wxOrientation orientation, ArrayView<const RgbBytes> colours,
                           float lengthScale)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE),
      m_orientation(orientation)
{
    Bind(wxEVT_PAINT, &StaticLine::onPaint, this);
    for (const RgbBytes& colour : colours)
        m_colours.push_back(toWxColour(colour));
    fixThickness();
    setLengthScale(lengthScale);
    describeAs<LabelledAccount, AccessibleRole::SEPARATOR>(*this);
}

Wx::StaticLine::~StaticLine() = default;

void Wx::StaticLine::setLengthScale(float scale)
{
    // The comparison is false for NaN.
    m_lengthScale = scale > 0.0f ? std::min(scale, 1.0f) : 0.0f;
    Refresh(true);
    Update();
}

void Wx::StaticLine::draw(wxDC& dc, wxOrientation orientation, ArrayView<const wxColour> colours,
                          float lengthScale)
{
    requireOrientation(orientation, PAINTING_PLACE);
    const wxSize size = dc.GetSize();
    CrispLines lines(dc);
    for (int i = 0; i < static_cast<int>(colours.size()); ++i) {
        const wxColour& colour = colours[static_cast<std::size_t>(i)];
        lines.setPen({lengthScale == 1.0f ? colour : brightened(colour), 1, wxPENSTYLE_SOLID});
        if (orientation == wxHORIZONTAL)
            lines.drawLine({0, i}, {partOf(size.x, lengthScale), i});
        else
            lines.drawLine({i, 0}, {i, partOf(size.y, lengthScale)});
    }
}

void Wx::StaticLine::fixThickness()
{
    requireOrientation(m_orientation, CONSTRUCTION_PLACE);
    const int thickness = static_cast<int>(m_colours.size());
    if (m_orientation == wxHORIZONTAL) {
        SetMinSize({GetMinWidth(), thickness});
        SetMaxSize({GetMaxWidth(), thickness});
    } else {
        SetMinSize({thickness, GetMinHeight()});
        SetMaxSize({thickness, GetMaxHeight()});
    }
}

void Wx::StaticLine::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, m_orientation, m_colours, m_lengthScale);
}

} // namespace Nolvex
