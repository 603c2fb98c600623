// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Button.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/PerScale.h"
#include "NolvexLibWx/widgets/ButtonAccount.h"

#include <wx/dcclient.h>
#include <wx/weakref.h>

#include <utility>

namespace Nolvex {

namespace {

constexpr int MINIMUM_HEIGHT = 24;
constexpr RgbBytes DISABLED_LABEL{110, 110, 110};
constexpr int BITMAP_INSET = 2;
constexpr int BITMAP_INSET_WITHOUT_FRAME = 1;
// Uneven on purpose: found by eye with the fonts of each scale.
constexpr PerScale<int> LABEL_RISE{0, 2, 0};

} // namespace

Wx::Button::Button(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label,
                   const wxBitmap& bitmap, const wxBitmap& disabledBitmap, Function<void()> onClick,
                   Behavior behavior, bool enabled, Flags<OskaBorderState> borderFlags)
    : OskaBorder(parent, borderFlags, id, wxTAB_TRAVERSAL, label),
      TooltipWindow(this),
      m_label(label),
      m_bitmapWhenDisabled(disabledBitmap.IsOk() ? disabledBitmap : bitmap),
      m_bitmap(bitmap),
      m_toggleBehaviour(behavior == Behavior::TOGGLE),
      m_skin(skin),
      m_clickCallback(std::move(onClick))
{
    SetFont(setDefaultFontSize(GetFont(), 1.0f));
    updateColours();
    Bind(wxEVT_LEFT_UP, &Button::onMouseUp, this);
    Bind(wxEVT_LEFT_DOWN, &Button::onMouseDown, this);
    // A double click is a second press.
    Bind(wxEVT_LEFT_DCLICK, &Button::onMouseDown, this);
    // After the border's own, hence asked before it.
    Bind(wxEVT_PAINT, &Button::onButtonPaint, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &Button::onMouseTaken, this);
    SetMinSize(wxSize(-1, scaleByDpi(MINIMUM_HEIGHT)));
    OskaBorder::Enable(enabled);
    Refresh(false, nullptr);
    if (m_toggleBehaviour)
        describeAs<ButtonAccount, AccessibleRole::TOGGLE_BUTTON>(*this);
    else
        describeAs<ButtonAccount, AccessibleRole::PUSH_BUTTON>(*this);
}

Wx::Button::~Button()
{
    m_capture.end();
}

void Wx::Button::SetLabel(const wxString& label)
{
    m_label = label;
    updateAccessible(*this);
    Refresh(true, nullptr);
}

bool Wx::Button::Enable(bool enable)
{
    // Windows takes the mouse from what it disables. A press that had begun is completed all the same.
    m_keepsPress = m_pressed;
    const bool changed = OskaBorder::Enable(enable);
    if (std::exchange(m_keepsPress, false))
        m_capture.begin();
    Refresh(false, nullptr);
    return changed;
}

void Wx::Button::setToggled(bool on)
{
    m_toggled = on;
    updateColours();
    updateAccessible(*this);
}

void Wx::Button::updateColours()
{
    const RgbBytes background =
        m_pressed ? m_skin.pressedBackground : (m_toggled ? m_skin.accent : m_skin.background);
    const RgbBytes foreground = m_toggled && !m_pressed ? m_skin.accentText : m_skin.text;
    SetBackgroundColour(toWxColour(background));
    SetForegroundColour(toWxColour(foreground));
    Refresh(true, nullptr);
}

void Wx::Button::press()
{
    m_pressed = true;
    updateColours();
    m_capture.begin();
}

void Wx::Button::onMouseDown(wxMouseEvent& /*event*/)
{
    if (m_state.has(OskaBorderState::ENABLED))
        press();
}

void Wx::Button::onMouseUp(wxMouseEvent& event)
{
    if (!m_pressed)
        return;
    m_capture.end();
    const wxPoint position = event.GetPosition();
    const bool inside = wxRect(GetSize()).Contains(position);
    m_pressed = false;
    updateColours();

    const wxWeakRef<Button> self(this);
    if (inside)
        doClick(position);
    // The click may have destroyed it.
    if (self)
        Refresh(true, nullptr);
}

void Wx::Button::onMouseTaken(wxMouseCaptureLostEvent& event)
{
    if (m_keepsPress)
        m_capture.lost();
    else
        onCaptureLost(event);
}

void Wx::Button::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    m_capture.lost();
    m_pressed = false;
    updateColours();
}

void Wx::Button::doClick(wxPoint position)
{
    const wxWeakRef<Button> self(this);
    wxMouseEvent event(wxEVT_BUTTON);
    event.SetId(GetId());
    event.SetEventObject(this);
    event.SetPosition(position);
    if (m_toggleBehaviour)
        setToggled(!m_toggled);
    GetParent()->GetEventHandler()->ProcessEvent(event);
    if (self && m_clickCallback)
        m_clickCallback();
}

void Wx::Button::onButtonPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    drawFace(dc);
}

void Wx::Button::drawFace(wxDC& dc) const
{
    const wxSize size = dc.GetSize();
    draw(dc, {{0, 0}, toPixel(size)}, m_state);
    const wxBitmap& bitmap = m_state.has(OskaBorderState::ENABLED) ? m_bitmap : m_bitmapWhenDisabled;
    int bitmapWidth = 0;
    if (bitmap.IsOk()) {
        const int inset = m_state.has(OskaBorderState::NO_FRAME) ? BITMAP_INSET_WITHOUT_FRAME : BITMAP_INSET;
        dc.DrawBitmap(bitmap, inset, inset, false);
        bitmapWidth = bitmap.GetWidth();
    }
    if (!m_label.empty())
        drawLabel(dc, size, bitmapWidth);
}

void Wx::Button::drawLabel(wxDC& dc, wxSize size, int bitmapWidth) const
{
    dc.SetFont(GetFont());
    dc.SetTextForeground(IsEnabled() ? GetForegroundColour() : toWxColour(DISABLED_LABEL));
    const wxSize text = dc.GetTextExtent(m_label);
    dc.DrawText(m_label, bitmapWidth + (size.x - text.x - bitmapWidth) / 2,
                (size.y - text.y) / 2 - atScreenScale(LABEL_RISE));
}

} // namespace Nolvex
