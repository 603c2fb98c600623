// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Button.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/paint/DensePixels.h"
#include "NolvexLibWx/paint/PerScale.h"
#include "NolvexLibWx/widgets/detail/ButtonAccount.h"

#include <wx/dcclient.h>
#include <wx/weakref.h>

#include <utility>

namespace Nolvex {

namespace {

constexpr int MIN_HEIGHT = 24;
constexpr RgbBytes DISABLED_LABEL{110, 110, 110};
constexpr int BITMAP_INSET = 2;
constexpr int BITMAP_INSET_WITHOUT_FRAME = 1;
// These uneven values were found by eye with the fonts of each scale.
constexpr PerScale<int> LABEL_RISE{0, 2, 0};

void drawLabel(wxDC& dc, const Bucket& rect, const Wx::Button::Face& face, int bitmapWidth)
{
    dc.SetFont(face.font);
    dc.SetTextForeground(face.textColour);
    const wxSize text = dc.GetTextExtent(face.label);
    const int left = bitmapWidth + (rect.width() - text.x - bitmapWidth) / 2;
    const int top = (rect.height() - text.y) / 2 - Nolvex::atScreenScale(LABEL_RISE);
    dc.DrawText(face.label, rect.min.x + left, rect.min.y + top);
}

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
    // Bound after the border's own handler, hence called instead of that.
    Bind(wxEVT_PAINT, &Button::onButtonPaint, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &Button::onMouseTaken, this);
    SetMinSize(wxSize(-1, scaleByDpi(MIN_HEIGHT)));
    OskaBorder::Enable(enabled);
    Refresh(false, nullptr);
    if (m_toggleBehaviour)
        describeAs<ButtonAccount, AccessibleRole::TOGGLE_BUTTON>(*this);
    else
        describeAs<ButtonAccount, AccessibleRole::PUSH_BUTTON>(*this);
}

Wx::Button::~Button() = default;

void Wx::Button::SetLabel(const wxString& label)
{
    m_label = label;
    updateAccessible(*this);
    Refresh(true, nullptr);
}

bool Wx::Button::Enable(bool enable)
{
    const bool changed = OskaBorder::Enable(enable);
    Refresh(false, nullptr);
    return changed;
}

// On Windows wxWidgets calls this function also when a parent is disabled or enabled.
void Wx::Button::DoEnable(bool enable)
{
    // Windows ends the mouse capture of a window that it disables, but a press that has begun must be
    // completed. A press that has given the mouse back itself must not capture it again.
    m_keepsPress = isPressed() && HasCapture();
    OskaBorder::DoEnable(enable);
    if (std::exchange(m_keepsPress, false))
        m_press.captureAgain();
}

void Wx::Button::callBack(const Button& part)
{
    // The copy lives on when the callback destroys the button.
    const Function<void()> callback = part.m_clickCallback;
    if (callback)
        callback();
}

void Wx::Button::swapCallbacks(Button& one, Button& other)
{
    std::swap(one.m_clickCallback, other.m_clickCallback);
}

void Wx::Button::setToggled(bool on)
{
    m_toggled = on;
    updateColours();
    updateAccessible(*this);
}

void Wx::Button::updateColours()
{
    const bool pressed = isPressed();
    const RgbBytes background =
        pressed ? m_skin.pressedBackground : (m_toggled ? m_skin.accent : m_skin.background);
    const RgbBytes foreground = m_toggled && !pressed ? m_skin.accentText : m_skin.text;
    SetBackgroundColour(toWxColour(background));
    SetForegroundColour(toWxColour(foreground));
    Refresh(true, nullptr);
}

void Wx::Button::beginPress()
{
    m_press.begin(Press::Means::MOUSE);
    updateColours();
}

void Wx::Button::cancelPress()
{
    m_press.cancel();
    updateColours();
}

void Wx::Button::onMouseDown(wxMouseEvent& /*event*/)
{
    if (borderState().has(OskaBorderState::ENABLED))
        beginPress();
}

void Wx::Button::onMouseUp(wxMouseEvent& event)
{
    const wxPoint position = event.GetPosition();
    const Press::Outcome outcome = m_press.release(position);
    if (outcome == Press::Outcome::NONE)
        return;
    updateColours();

    const wxWeakRef<Button> self(this);
    if (outcome == Press::Outcome::COMPLETED)
        doClick(position);
    // The handlers of the click may have destroyed the button.
    if (self)
        Refresh(true, nullptr);
}

void Wx::Button::onMouseTaken(wxMouseCaptureLostEvent& event)
{
    if (!m_keepsPress)
        onCaptureLost(event);
}

void Wx::Button::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    cancelPress();
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
    if (self)
        callBack(*this);
}

void Wx::Button::onButtonPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, {{0, 0}, toPixel(dc.GetSize())}, face());
}

Wx::Button::Face Wx::Button::face() const
{
    return {.border = borderState(),
            .bitmap = borderState().has(OskaBorderState::ENABLED) ? m_bitmap : m_bitmapWhenDisabled,
            .label = m_label,
            .font = GetFont(),
            .textColour = IsEnabled() ? GetForegroundColour() : toWxColour(DISABLED_LABEL)};
}

void Wx::Button::draw(wxDC& dc, const Bucket& rect, const Face& face)
{
    OskaBorder::draw(dc, rect, face.border);
    int bitmapWidth = 0;
    if (face.bitmap.IsOk()) {
        const bool framed = !face.border.has(OskaBorderState::NO_FRAME);
        const int inset = framed ? BITMAP_INSET : BITMAP_INSET_WITHOUT_FRAME;
        drawSharp(dc, face.bitmap, {rect.min.x + inset, rect.min.y + inset}, false);
        bitmapWidth = screenSize(face.bitmap).x;
    }
    if (!face.label.empty())
        drawLabel(dc, rect, face, bitmapWidth);
}

} // namespace Nolvex
