// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ColorLegend.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/view/ColorMap.h"
#include "apps/viewer/view/ShortNumber.h"

#include <wx/brush.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/pen.h>
#include <wx/settings.h>

namespace Nolvex::Viewer {

namespace {

// In design units
const wxSize SIZE(240, 42);
constexpr int MARGIN = 8;
constexpr int BAR_HEIGHT = 12;
constexpr int TEXT_HEIGHT = 12;

wxString labelOf(float value, FalseColor kind)
{
    return kind == FalseColor::STOPS ? L"2^" + shortNumber(value) : shortNumber(value);
}

} // namespace

wxRect legendRect(const wxRect& area)
{
    const wxSize size = Wx::scaleByDpi(SIZE);
    const int margin = Wx::scaleByDpi(MARGIN);
    return {area.GetRight() + 1 - margin - size.x, area.GetBottom() + 1 - margin - size.y, size.x, size.y};
}

void drawLegend(wxDC& dc, const DisplaySettings& settings, const wxRect& rect)
{
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(*wxBLACK_BRUSH);
    dc.DrawRectangle(rect);
    const int margin = Wx::scaleByDpi(MARGIN);
    const wxRect bar(rect.x + margin, rect.y + margin, rect.width - 2 * margin, Wx::scaleByDpi(BAR_HEIGHT));
    for (int x = 0; x < bar.width; ++x) {
        const float part = static_cast<float>(x) / static_cast<float>(bar.width - 1);
        dc.SetBrush(wxBrush(Wx::toWxColour(ColorMap::colorAt(part))));
        dc.DrawRectangle(bar.x + x, bar.y, 1, bar.height);
    }
    wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    font.SetPixelSize(wxSize(0, Wx::scaleByDpi(TEXT_HEIGHT)));
    dc.SetFont(font);
    dc.SetTextForeground(*wxWHITE);
    const wxRect texts(bar.x, bar.GetBottom() + 1, bar.width, rect.GetBottom() - bar.GetBottom());
    const float middle = settings.falseColorFrom + (settings.falseColorTo - settings.falseColorFrom) / 2.0f;
    const auto write = [&](float value, int alignment) {
        dc.DrawLabel(labelOf(value, settings.falseColor), texts, alignment | wxALIGN_CENTRE_VERTICAL);
    };
    write(settings.falseColorFrom, wxALIGN_LEFT);
    write(middle, wxALIGN_CENTRE_HORIZONTAL);
    write(settings.falseColorTo, wxALIGN_RIGHT);
}

} // namespace Nolvex::Viewer
