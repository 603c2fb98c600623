// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ViewAccount.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/view/ImageView.h"
#include "apps/viewer/view/PixelCursor.h"
#include "apps/viewer/view/PixelNumbers.h"
#include "apps/viewer/view/ShortNumber.h"

namespace Nolvex::Viewer {

namespace {

// What the legend of false colour shows.
wxString legendText(const DisplaySettings& display)
{
    if (display.falseColor == FalseColor::OFF)
        return {};
    const wxString power = display.falseColor == FalseColor::STOPS ? L"2^" : L"";
    return L", false colour from " + power + shortNumber(display.falseColorFrom) + L" to " + power +
           shortNumber(display.falseColorTo);
}

} // namespace

String ViewAccount::name() const
{
    return m_view.picture() ? m_view.picture()->name() : String(L"No picture");
}

String ViewAccount::valueText() const
{
    if (!m_view.picture())
        return {};
    constexpr double PERCENT = 100.0;
    const Optional<PixelCursor::Shown> shown = m_view.pixelCursor().shown();
    if (!shown)
        return Wx::toString(shortNumber(static_cast<float>(m_view.scale() * PERCENT)) + L" %" +
                            legendText(m_view.display()));
    wxString values = numbersOf(shown->picture->image(), m_view.display(), shown->pixel);
    values.Replace(L"\n", L", ");
    return Wx::toString(wxString::Format(L"pixel %d, %d: ", shown->pixel.x, shown->pixel.y) + values);
}

} // namespace Nolvex::Viewer
