// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Tooltip.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/HeldShowEvent.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "NolvexLibWx/paint/CrispLines.h"
#include "NolvexLibWx/platform/MouseTransparency.h"
#include "NolvexLibWx/platform/PopupPlacement.h"
#include "NolvexLibWx/widgets/detail/TooltipDismissal.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/pen.h>
#include <wx/settings.h>
#include <wx/utils.h>

#include <algorithm>
#include <limits>

namespace Nolvex {

namespace {

constexpr int POPUP_STYLE = 6;
constexpr int WRAP_WIDTH = 250;
constexpr int MARGIN = 3;
constexpr std::int64_t WATCH_INTERVAL = 200; // milliseconds
constexpr Pixel MOUSE_DISTANCE{10, 5};

// An empty line is as high as a line with a space.
wxString visibleLine(const String& line)
{
    return line.isEmpty() ? wxString(L" ") : Wx::toWxString(line);
}

// Makes a colour opaque, because tooltip colours of GTK themes may be translucent, and a popup cannot be.
wxColour opaqueSystemColour(wxSystemColour index)
{
    return Wx::toWxColour(Wx::toRgbBytes(wxSystemSettings::GetColour(index)));
}

void paintBox(wxDC& dc, const wxRect& box, const wxColour& inside, const wxColour& outline)
{
    dc.SetBrush({inside, wxBRUSHSTYLE_SOLID});
    CrispLines lines(dc);
    lines.setPen({outline, 1, wxPENSTYLE_SOLID});
    lines.drawRectangle(box);
}

// Wraps one paragraph, which is a text without line-feeds.
void splitParagraph(StringView text, int limit, const Function<int(StringView)>& measure,
                    Array<String>& lines)
{
    std::size_t start = 0;
    std::size_t breakPoint = 0; // there is none while this is not beyond `start`
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
    // Two-step creation: Create makes the tooltip a child of the owner, which at once asks AcceptsFocus of
    // this class.
    Create(owner, POPUP_STYLE);
    // At the edge of the screen, the tooltip can come to lie under the mouse. The owner keeps the mouse, and
    // a click there is the owner's.
    Platform::letMouseThrough(*this);
    Bind(wxEVT_PAINT, &Tooltip::onPaint, this);
    Show(false);
    m_timer.SetOwner(this);
    Bind(wxEVT_TIMER, &Tooltip::onTimer, this);
    owner->Bind(wxEVT_LEAVE_WINDOW, &Tooltip::onOwnerLeft, this);
    owner->Bind(wxEVT_ENTER_WINDOW, &Tooltip::onOwnerMoved, this);
    owner->Bind(wxEVT_LEFT_UP, &Tooltip::onOwnerClicked, this);
    owner->Bind(wxEVT_MOTION, &Tooltip::onOwnerMoved, this);
    TooltipDismissal::instance().add(this);
    setText(text);
}

Wx::Tooltip::~Tooltip()
{
    TooltipDismissal::instance().remove(this);
    // wxWidgets would unbind the handlers too, but only after the members of the tooltip have been destroyed.
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
        const Pixel corner = screenRegion().min;
        fitToText();
        place(corner);
        Refresh();
    }
}

void Wx::Tooltip::arm()
{
    constexpr std::int64_t MAX_WAIT = std::numeric_limits<int>::max();
    const std::int64_t wait = IsShown() ? WATCH_INTERVAL : m_delay;
    m_timer.StartOnce(static_cast<int>(std::clamp<std::int64_t>(wait, 1, MAX_WAIT)));
}

void Wx::Tooltip::hide()
{
    const wxWeakRef<Tooltip> self(this);
    Show(false);
    if (self)
        m_timer.Stop();
}

// wxWidgets for Windows goes on to use the owner after the mouse has entered or left it, so that a handler of
// wxEVT_SHOW may not destroy the owner before.
void Wx::Tooltip::hideAndTellLater()
{
    m_postsShowEvent = true;
    hide();
    m_postsShowEvent = false;
}

bool Wx::Tooltip::Show(bool show)
{
    return Detail::showAndHoldEvent(
        *this, show, m_holdsShowEvent, [this](bool shown) { return wxPopupWindow::Show(shown); },
        m_postsShowEvent ? Detail::ShowEventTime::LATER : Detail::ShowEventTime::NOW);
}

bool Wx::Tooltip::TryBefore(wxEvent& event)
{
    return Detail::isHeldShowEvent(*this, m_holdsShowEvent, event) || wxPopupWindow::TryBefore(event);
}

void Wx::Tooltip::onOwnerLeft(wxMouseEvent& event)
{
    hideAndTellLater();
    event.Skip();
}

void Wx::Tooltip::onOwnerClicked(wxMouseEvent& event)
{
    const wxWeakRef<wxWindow> owner(m_owner);
    hide();
    // No further handlers can be looked for in an owner that a handler of the hiding has destroyed.
    event.Skip(owner.get() != nullptr);
}

void Wx::Tooltip::onOwnerMoved(wxMouseEvent& event)
{
    const wxWeakRef<Tooltip> self(this);
    const wxWeakRef<wxWindow> owner(m_owner);
    // When the user moves the mouse onto the tooltip, it hides to show the windows below. Systems also report
    // a movement to the same position when the tooltip appears.
    const wxPoint mouse = wxGetMousePosition();
    if (IsShown() && mouse != m_mouseWhenShown && screenRegion().contains(toPixel(mouse))) {
        if (event.Entering())
            hideAndTellLater();
        else
            hide();
    }
    if (self)
        arm();
    event.Skip(owner.get() != nullptr);
}

bool Wx::Tooltip::hasReason() const
{
    if (m_lines.empty() || !m_owner || !m_owner->IsShownOnScreen())
        return false;
    const wxMouseState mouse = wxGetMouseState();
    if (mouse.LeftIsDown() || mouse.MiddleIsDown() || mouse.RightIsDown())
        return false;
    return Detail::screenRect(*m_owner).Contains(mouse.GetPosition());
}

void Wx::Tooltip::onTimer(wxTimerEvent& /*event*/)
{
    if (!hasReason()) {
        hide();
        return;
    }
    // A shown tooltip stays where it is.
    const wxWeakRef<Tooltip> self(this);
    if (!IsShown())
        popUp();
    if (!self)
        return;
    // While the tooltip is shown, the timer keeps asking for the reason: neither GTK nor Windows tells the
    // owner when it is hidden or minimised under the mouse.
    arm();
}

void Wx::Tooltip::popUp()
{
    const wxWeakRef<Tooltip> self(this);
    const ScopedWindowFreezer freezer(this);
    Show(true);
    // A handler of wxEVT_SHOW may have destroyed the tooltip.
    if (!self)
        return;
    fitToText();
    m_mouseWhenShown = wxGetMousePosition();
    place(toPixel(m_mouseWhenShown) + MOUSE_DISTANCE);
}

void Wx::Tooltip::place(Pixel corner)
{
    if (!m_owner || !Platform::placeAt(*this, *m_owner, toWxPoint(corner)))
        smartPositionWindow(this, corner);
}

// wxWidgets does not know where Wayland has placed the tooltip.
Bucket Wx::Tooltip::screenRegion() const
{
    return getScreenRegion(getWindowNativeHandle(this));
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
    paintBox(dc, GetClientRect(), background, foreground);
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
