// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Tooltip.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/pen.h>
#include <wx/settings.h>

#include <algorithm>
#include <limits>

namespace Nolvex {

namespace {

constexpr int POPUP_STYLE = 6;
constexpr int WRAP_WIDTH = 250;
constexpr int MARGIN = 3;
constexpr std::int64_t WATCH_INTERVAL = 200; // milliseconds
constexpr Pixel MOUSE_DISTANCE{10, 5};

// A space gives an empty line its height.
wxString visibleLine(const String& line)
{
    return line.isEmpty() ? wxString(L" ") : Wx::toWxString(line);
}

// GTK themes have tooltips that let the windows below shine through, which a popup cannot.
wxColour opaqueSystemColour(wxSystemColour index)
{
    return Wx::toWxColour(Wx::toRgbBytes(wxSystemSettings::GetColour(index)));
}

bool isWithin(int offset, int length)
{
    return static_cast<unsigned>(offset) < static_cast<unsigned>(length);
}

// Wraps one paragraph, a text without line-feeds.
void splitParagraph(StringView text, int limit, const Function<int(StringView)>& measure,
                    Array<String>& lines)
{
    std::size_t start = 0;
    std::size_t breakPoint = 0; // none while at or before the start
    for (std::size_t i = text.find(L" "); i != StringView::NPOS; i = text.find(L" ", i + 1)) {
        if (i == start || text[i - 1] == L' ')
            continue;
        if (measure(text.getSubstr(start, i - start)) > limit && breakPoint > start) {
            lines.emplace_back(text.getSubstr(start, breakPoint - start));
            start = text.view().find_first_not_of(L' ', breakPoint);
        }
        breakPoint = i;
    }
    lines.emplace_back(text.getSubstr(start));
}

} // namespace

Array<String> Wx::Detail::splitTooltipLines(StringView text, int limit,
                                            const Function<int(StringView)>& measure)
{
    Array<String> lines;
    for (std::size_t start = 0; start < text.length();) {
        const std::size_t end = std::min(text.find(L"\n", start), text.length());
        splitParagraph(text.getSubstr(start, end - start), limit, measure, lines);
        start = end + 1;
    }
    return lines;
}

Wx::Tooltip::Tooltip(wxWindow* owner, const String& text) : m_owner(owner)
{
    // Created here and not by the base: becoming its child, it is asked by the owner whether it takes the
    // focus.
    Create(owner, POPUP_STYLE);
    Bind(wxEVT_PAINT, &Tooltip::onPaint, this);
    Show(false);
    m_timer.SetOwner(this);
    Bind(wxEVT_TIMER, &Tooltip::onTimer, this);
    // At the edge of the screen it can come to lie under the mouse.
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { hide(); });
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { hide(); });

    owner->Bind(wxEVT_LEAVE_WINDOW, &Tooltip::onOwnerLeft, this);
    owner->Bind(wxEVT_ENTER_WINDOW, &Tooltip::onOwnerMoved, this);
    owner->Bind(wxEVT_LEFT_UP, &Tooltip::onOwnerClicked, this);
    owner->Bind(wxEVT_MOTION, &Tooltip::onOwnerMoved, this);
    setText(text);
}

Wx::Tooltip::~Tooltip()
{
    // The toolkit would do it too, but not before the members are gone.
    if (!m_owner)
        return;
    m_owner->Unbind(wxEVT_LEAVE_WINDOW, &Tooltip::onOwnerLeft, this);
    m_owner->Unbind(wxEVT_ENTER_WINDOW, &Tooltip::onOwnerMoved, this);
    m_owner->Unbind(wxEVT_LEFT_UP, &Tooltip::onOwnerClicked, this);
    m_owner->Unbind(wxEVT_MOTION, &Tooltip::onOwnerMoved, this);
}

void Wx::Tooltip::setText(const String& text)
{
    m_lines = Detail::splitTooltipLines(text, scaleByDpi(WRAP_WIDTH), [this](StringView line) {
        return GetTextExtent(toWxString(line)).GetWidth();
    });
    if (m_owner)
        setAccessibleDescription(*m_owner, text);
    if (!IsShown())
        return;
    if (m_lines.empty()) {
        hide();
    } else {
        fitToText();
        smartPositionWindow(this, toPixel(GetScreenPosition()));
        Refresh();
    }
}

void Wx::Tooltip::arm()
{
    constexpr std::int64_t LONGEST = std::numeric_limits<int>::max();
    const std::int64_t wait = IsShown() ? WATCH_INTERVAL : m_delay;
    m_timer.StartOnce(static_cast<int>(std::clamp<std::int64_t>(wait, 1, LONGEST)));
}

void Wx::Tooltip::hide()
{
    Show(false);
    m_timer.Stop();
}

void Wx::Tooltip::onOwnerLeft(wxMouseEvent& event)
{
    event.Skip();
    // Popping up under the mouse takes the mouse from the owner: to hide then would be to flicker.
    if (!IsShown() || !GetScreenRect().Contains(wxGetMousePosition()))
        hide();
}

void Wx::Tooltip::onOwnerMoved(wxMouseEvent& event)
{
    event.Skip();
    arm();
}

void Wx::Tooltip::onOwnerClicked(wxMouseEvent& event)
{
    event.Skip();
    hide();
}

bool Wx::Tooltip::hasReason() const
{
    if (m_lines.empty() || !m_owner || !m_owner->IsShownOnScreen())
        return false;
    const wxPoint offset = wxGetMousePosition() - m_owner->GetScreenPosition();
    const wxSize size = m_owner->GetSize();
    return isWithin(offset.x, size.x) && isWithin(offset.y, size.y);
}

void Wx::Tooltip::onTimer(wxTimerEvent& /*event*/)
{
    if (!hasReason()) {
        hide();
        return;
    }
    // Once shown it stays where it is.
    if (!IsShown())
        popUp();
    // Not every system tells a window that it is hidden or minimised under the mouse: watched while shown.
    arm();
}

void Wx::Tooltip::popUp()
{
    Freeze();
    Show(true);
    fitToText();
    smartPositionWindow(this, toPixel(wxGetMousePosition()) + MOUSE_DISTANCE);
    Thaw();
}

void Wx::Tooltip::fitToText()
{
    const wxClientDC dc(this);
    wxSize size(0, 0);
    for (const String& line : m_lines) {
        const wxSize extent = dc.GetTextExtent(visibleLine(line));
        size = {std::max(size.x, extent.x), size.y + extent.y};
    }
    size.IncBy(2 * MARGIN);
    SetMinSize(size);
    SetClientSize(size);
}

void Wx::Tooltip::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    paint(dc);
}

void Wx::Tooltip::paint(wxDC& dc) const
{
    const wxColour background = opaqueSystemColour(wxSYS_COLOUR_INFOBK);
    const wxColour foreground = opaqueSystemColour(wxSYS_COLOUR_INFOTEXT);
    dc.SetBrush({background, wxBRUSHSTYLE_SOLID});
    dc.SetPen({foreground, 1, wxPENSTYLE_SOLID});
    dc.DrawRectangle(GetClientRect());
    dc.SetTextBackground(background);
    dc.SetTextForeground(foreground);
    dc.SetFont(GetFont());
    int y = MARGIN;
    for (const String& line : m_lines) {
        dc.DrawText(toWxString(line), MARGIN, y);
        y += dc.GetTextExtent(visibleLine(line)).GetHeight();
    }
}

} // namespace Nolvex
