// SPDX-License-Identifier: MIT
#include "apps/picker/AlphaChecks.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "apps/picker/ClampedNumber.h"

#include <wx/dc.h>

namespace Nolvex::Picker {

namespace {

constexpr int CHECK_LENGTH = 4; // design units
constexpr float LIGHT_CHECK = 0.8f;
constexpr float DARK_CHECK = 0.5f;

wxColour blended(const Rgb& color, float check)
{
    const float alpha = clampedNumber(color.a);
    const auto blend = [&](float number) { return clampedNumber(number) * alpha + check * (1.0f - alpha); };
    return Wx::toWxColour(Rgb{blend(color.r), blend(color.g), blend(color.b), 1.0f});
}

void fill(wxDC& dc, const wxRect& rect, const wxColour& color)
{
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(color));
    dc.DrawRectangle(rect);
}

} // namespace

void fillOverChecks(wxDC& dc, const wxRect& rect, const Rgb& color)
{
    if (color.a >= 1.0f) {
        fill(dc, rect, Wx::toWxColour(color));
        return;
    }
    const wxColour shades[] = {blended(color, LIGHT_CHECK), blended(color, DARK_CHECK)};
    const int length = Wx::scaleByDpi(CHECK_LENGTH);
    for (int row = rect.y / length; row * length < rect.GetBottom() + 1; ++row) {
        for (int column = rect.x / length; column * length < rect.GetRight() + 1; ++column) {
            const wxRect check(column * length, row * length, length, length);
            fill(dc, check.Intersect(rect), shades[(row + column) % 2]);
        }
    }
}

} // namespace Nolvex::Picker
