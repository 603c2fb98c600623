// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenOverlay.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/viewer/ScreenRegionChoice.h"
#include "apps/viewer/view/ArrowKey.h"
#include "apps/viewer/view/PictureRenderer.h"
#include "apps/viewer/view/PixelSelection.h"

#include <wx/cursor.h>
#include <wx/dcbuffer.h>
#include <wx/frame.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int CLICK_MOVEMENT = 2; // design units
constexpr int LABEL_MARGIN = 4;   // design units
constexpr int STEP = 10;          // pixels of the picture for a press of an arrow
const wchar_t* const HINT = L"Drag a rectangle, or press an arrow key to begin one.\n"
                            L"Arrows move it, with Shift they change its size, with Ctrl by single pixels.\n"
                            L"Enter takes it, or the whole display. Escape cancels.";

wxString textOf(const Optional<wxRect>& region)
{
    if (!region)
        return L"no region yet";
    return wxString::Format(L"%d \u00D7 %d at %d, %d", region->width, region->height, region->x, region->y);
}

class OverlayAccount : public Wx::AccessibleControl
{
public:
    explicit OverlayAccount(const ScreenOverlay& overlay) : m_overlay(overlay) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::IMAGE; }

    String name() const override { return L"Region of the screen"; }

    String description() const override { return HINT; }

    String valueText() const override { return Wx::toString(textOf(m_overlay.region())); }

private:
    const ScreenOverlay& m_overlay;
};

// The half of a display around its middle.
wxRect middleOf(const wxRect& part)
{
    return {part.x + part.width / 4, part.y + part.height / 4, std::max(part.width / 2, 1),
            std::max(part.height / 2, 1)};
}

void copyDimmed(const std::uint32_t* from, std::uint32_t* to, int count)
{
    constexpr std::uint32_t HALVES = 0x7f7f7f;
    for (int x = 0; x < count; ++x)
        to[x] = from[x] >> 1 & HALVES;
}

} // namespace

ScreenOverlay::ScreenOverlay(wxFrame& frame, ScreenRegionChoice& choice, const wxRect& part)
    : wxWindow(&frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS),
      m_choice(&choice),
      m_part(part)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetCursor(wxCursor(wxCURSOR_CROSS));
    Bind(wxEVT_PAINT, &ScreenOverlay::onPaint, this);
    Bind(wxEVT_LEFT_DOWN, &ScreenOverlay::onPressed, this);
    Bind(wxEVT_MOTION, &ScreenOverlay::onMoved, this);
    Bind(wxEVT_LEFT_UP, &ScreenOverlay::onReleased, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &ScreenOverlay::onCaptureLost, this);
    Bind(wxEVT_KEY_DOWN, &ScreenOverlay::onKey, this);
    frame.Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { cancel(); });
    Wx::describeAs<OverlayAccount>(*this);
}

Optional<wxRect> ScreenOverlay::region() const
{
    return m_choice == nullptr ? Optional<wxRect>() : m_choice->region();
}

void ScreenOverlay::showRegion()
{
    Refresh();
    Wx::updateAccessible(*this);
}

void ScreenOverlay::remove()
{
    m_capture.end();
    m_choice = nullptr;
    GetParent()->Hide();
    GetParent()->Destroy();
}

void ScreenOverlay::cancel()
{
    if (m_choice != nullptr)
        m_choice->end({});
}

int ScreenOverlay::pixelsPerUnit() const
{
    return std::max(static_cast<int>(GetContentScaleFactor()), 1);
}

double ScreenOverlay::scale() const
{
    return static_cast<double>(std::max(GetClientSize().x, 1) * pixelsPerUnit()) / m_part.width;
}

Pixel ScreenOverlay::pixelAt(const wxPoint& position) const
{
    constexpr double MIDDLE = 0.5;
    const auto along = [this](int place) {
        return static_cast<int>(std::floor((place * pixelsPerUnit() + MIDDLE) / scale()));
    };
    return {m_part.x + along(position.x), m_part.y + along(position.y)};
}

wxRect ScreenOverlay::deviceRect(const wxRect& pixels) const
{
    const auto along = [this](int pixel) { return static_cast<int>(std::lround(pixel * scale())); };
    const wxPoint first(along(pixels.x - m_part.x), along(pixels.y - m_part.y));
    const wxPoint end(along(pixels.x + pixels.width - m_part.x), along(pixels.y + pixels.height - m_part.y));
    return {first.x, first.y, std::max(end.x - first.x, 1), std::max(end.y - first.y, 1)};
}

void ScreenOverlay::onPaint(wxPaintEvent& /*event*/)
{
    wxAutoBufferedPaintDC dc(this);
    if (m_choice == nullptr || !drawPicture(dc)) {
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        return;
    }
    dc.SetFont(GetFont());
    if (m_choice->region())
        drawRegion(dc, *m_choice->region());
    else
        drawHint(dc);
}

// Returns whether there was enough memory.
bool ScreenOverlay::drawPicture(wxDC& dc)
{
    const wxSize size = GetClientSize() * pixelsPerUnit();
    if (!m_bright || m_bright->size() != size) {
        m_bright = std::make_unique<Platform::PixelCanvas>(size);
        m_canvas = std::make_unique<Platform::PixelCanvas>(size);
        if (!m_bright->isOk() || !m_canvas->isOk())
            return false;
        fillWith({}, size, *m_bright);
        drawImage(
            {m_choice->screen().image(), nullptr, {}, scale(), {-m_part.x * scale(), -m_part.y * scale()}},
            {}, size, *m_bright);
    }
    if (!m_bright->isOk() || !m_canvas->isOk())
        return false;
    const Optional<wxRect> region = m_choice->region();
    const wxRect light = region ? deviceRect(*region).Intersect(wxRect(size)) : wxRect();
    for (int y = 0; y < size.y; ++y) {
        copyDimmed(m_bright->row(y), m_canvas->row(y), size.x);
        if (y >= light.y && y < light.y + light.height)
            std::copy_n(m_bright->row(y) + light.x, light.width, m_canvas->row(y) + light.x);
    }
    m_canvas->draw(dc, pixelsPerUnit());
    return true;
}

void ScreenOverlay::drawRegion(wxDC& dc, const wxRect& region) const
{
    const wxRect device = deviceRect(region);
    const int dense = pixelsPerUnit();
    const wxPoint first(device.x / dense, device.y / dense);
    const wxPoint end((device.x + device.width + dense - 1) / dense,
                      (device.y + device.height + dense - 1) / dense);
    wxRect line(first, wxSize(end.x - first.x, end.y - first.y));
    line.Inflate(1); // the line covers no pixel of the region
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.SetPen(*wxWHITE_PEN);
    dc.DrawRectangle(line);
    dc.SetPen(wxPen(*wxBLACK, 1, wxPENSTYLE_SHORT_DASH));
    dc.DrawRectangle(line);
    drawLabel(dc, textOf(region), line.GetBottomLeft() + wxPoint(0, Wx::scaleByDpi(LABEL_MARGIN)));
}

void ScreenOverlay::drawHint(wxDC& dc) const
{
    const wxSize size = dc.GetMultiLineTextExtent(HINT);
    drawLabel(dc, HINT, wxPoint() + (GetClientSize() - size) / 2);
}

// Draws the text with its corner at the point, or as near to it as the client area allows.
void ScreenOverlay::drawLabel(wxDC& dc, const wxString& text, const wxPoint& corner) const
{
    const int margin = Wx::scaleByDpi(LABEL_MARGIN);
    const wxSize size = dc.GetMultiLineTextExtent(text) + wxSize(2 * margin, 2 * margin);
    const wxSize room = GetClientSize() - size;
    const wxRect box(
        wxPoint(std::clamp(corner.x, 0, std::max(room.x, 0)), std::clamp(corner.y, 0, std::max(room.y, 0))),
        size);
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(Wx::toWxColour(skin.darkBackground));
    dc.DrawRectangle(box);
    dc.SetTextForeground(Wx::toWxColour(skin.text));
    dc.DrawLabel(text, box, wxALIGN_CENTRE);
}

void ScreenOverlay::onPressed(wxMouseEvent& event)
{
    SetFocus();
    m_pressed = event.GetPosition();
    m_moved = false;
    m_dragging = true;
    m_capture.begin();
}

void ScreenOverlay::onMoved(wxMouseEvent& event)
{
    if (m_choice == nullptr || !m_dragging)
        return;
    const wxPoint moved = event.GetPosition() - m_pressed;
    const int clickMovement = Wx::scaleByDpi(CLICK_MOVEMENT);
    m_moved = m_moved || std::abs(moved.x) > clickMovement || std::abs(moved.y) > clickMovement;
    if (m_moved) {
        m_choice->setRegion(
            rectOfCorners(pixelAt(m_pressed), pixelAt(event.GetPosition()), m_choice->screen().size()));
    }
}

void ScreenOverlay::onReleased(wxMouseEvent& /*event*/)
{
    m_capture.end();
    const bool isTaken = std::exchange(m_dragging, false) && m_moved;
    if (isTaken && m_choice != nullptr)
        m_choice->end(m_choice->region());
}

void ScreenOverlay::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    m_dragging = false;
    m_capture.end();
}

void ScreenOverlay::onKey(wxKeyEvent& event)
{
    if (m_choice == nullptr)
        return;
    const int key = event.GetKeyCode();
    const Pixel direction = directionOfArrow(key);
    if (key == WXK_ESCAPE)
        cancel();
    else if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)
        m_choice->end(m_choice->region().value_or(m_part));
    else if (direction != Pixel{0, 0})
        moveRegion(direction, event.GetModifiers());
    else
        event.Skip();
}

void ScreenOverlay::moveRegion(const Pixel& direction, int modifiers)
{
    const Pixel size = m_choice->screen().size();
    const Optional<wxRect> region = m_choice->region();
    const Pixel distance = direction * ((modifiers & wxMOD_CONTROL) != 0 ? 1 : STEP);
    if (!region)
        m_choice->setRegion(withinImage(middleOf(m_part), size));
    else if ((modifiers & wxMOD_SHIFT) != 0)
        m_choice->setRegion(grown(*region, distance, size));
    else
        m_choice->setRegion(moved(*region, distance, size));
}

} // namespace Nolvex::Viewer
