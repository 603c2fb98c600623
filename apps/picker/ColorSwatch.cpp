// SPDX-License-Identifier: MIT
#include "apps/picker/ColorSwatch.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/picker/AlphaChecks.h"
#include "apps/picker/HexColor.h"

#include <wx/dcbuffer.h>

#include <utility>

namespace Nolvex::Picker {

namespace {

constexpr int MARGIN = 2; // pixels of the border

} // namespace

class ColorSwatch::Account : public Wx::AccessibleControl
{
public:
    explicit Account(ColorSwatch& swatch) : m_swatch(swatch) {}

    Wx::AccessibleRole role() const override
    {
        return m_swatch.m_onTake ? Wx::AccessibleRole::PUSH_BUTTON : Wx::AccessibleRole::IMAGE;
    }

    String name() const override { return m_swatch.m_name + L" " + hexColor(m_swatch.m_color); }

    Array<String> actions() const override
    {
        return m_swatch.m_onTake ? Array<String>{L"click"} : Array<String>();
    }

    void doAction(int /*index*/) override { m_swatch.m_onTake(); }

private:
    ColorSwatch& m_swatch;
};

ColorSwatch::ColorSwatch(wxWindow* parent, const String& name, const wxSize& size, const Rgb& color,
                         Function<void()> onTake)
    : OskaBorder(parent,
                 onTake ? Flags<OskaBorderState>(OskaBorderState::ENABLED) : Flags<OskaBorderState>()),
      m_name(name),
      m_color(color),
      m_onTake(std::move(onTake))
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(Wx::scaleByDpi(size));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        paint(dc);
    });
    Wx::describeAs<Account>(*this);
    if (!m_onTake)
        return;
    Bind(wxEVT_LEFT_DOWN, &ColorSwatch::onPress, this);
    Bind(wxEVT_LEFT_DCLICK, &ColorSwatch::onPress, this);
    Bind(wxEVT_LEFT_UP, &ColorSwatch::onRelease, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { m_press.cancel(); });
    Bind(wxEVT_SET_FOCUS, &ColorSwatch::onFocusChanged, this);
    Bind(wxEVT_KILL_FOCUS, &ColorSwatch::onFocusChanged, this);
    Bind(wxEVT_CHAR_HOOK, &ColorSwatch::onKey, this);
    Wx::bindGroupExit(*this);
}

ColorSwatch::~ColorSwatch() = default;

void ColorSwatch::setColor(const Rgb& color)
{
    m_color = color;
    Refresh();
    Wx::updateAccessible(*this);
}

bool ColorSwatch::AcceptsFocus() const
{
    return static_cast<bool>(m_onTake);
}

bool ColorSwatch::AcceptsFocusFromKeyboard() const
{
    return AcceptsFocus();
}

void ColorSwatch::paint(wxDC& dc) const
{
    const wxRect area(GetClientSize());
    dc.SetBackground(wxBrush(GetBackgroundColour()));
    dc.Clear();
    OskaBorder::draw(dc, Wx::toBucket(area), borderState());
    fillOverChecks(dc, wxRect(area).Deflate(MARGIN), m_color);
    if (!HasFocus())
        return;
    dc.SetPen(wxPen(Wx::toWxColour(Wx::GuiSkin::DEFAULT().text)));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(wxRect(area).Deflate(MARGIN - 1));
}

void ColorSwatch::onPress(wxMouseEvent& /*event*/)
{
    SetFocus();
    m_press.begin(Wx::Press::Means::MOUSE);
}

void ColorSwatch::onRelease(wxMouseEvent& event)
{
    if (m_press.release(event.GetPosition()) == Wx::Press::Outcome::COMPLETED)
        m_onTake();
}

void ColorSwatch::onFocusChanged(wxFocusEvent& event)
{
    event.Skip();
    Refresh();
}

void ColorSwatch::onKey(wxKeyEvent& event)
{
    switch (event.HasAnyModifiers() ? WXK_NONE : event.GetKeyCode()) {
    case WXK_SPACE:
        return m_onTake();
    case WXK_RIGHT:
    case WXK_DOWN:
        return Wx::moveFocus(this, Wx::MoveFocusDirection::FORWARD);
    case WXK_LEFT:
    case WXK_UP:
        return Wx::moveFocus(this, Wx::MoveFocusDirection::BACKWARD);
    default:
        event.Skip();
    }
}

} // namespace Nolvex::Picker
