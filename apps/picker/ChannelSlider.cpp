// SPDX-License-Identifier: MIT
#include "apps/picker/ChannelSlider.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/picker/AlphaChecks.h"
#include "apps/picker/ClampedNumber.h"

#include <wx/dcbuffer.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Nolvex::Picker {

namespace {

const wxSize SIZE(220, 20); // design units
constexpr int TRACK_MARGIN = 4;
constexpr int KNOB_WIDTH = 3;
constexpr float PAGE_STEPS = 10.0f;

} // namespace

class ChannelSlider::Account : public Wx::AccessibleControl
{
public:
    explicit Account(ChannelSlider& slider) : m_slider(slider) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::SLIDER; }

    String name() const override { return m_slider.m_name; }

    Optional<Wx::AccessibleValue> value() const override
    {
        const float number = m_slider.number();
        return Wx::AccessibleValue{number, 0.0, m_slider.m_range.maximum, m_slider.m_range.step,
                                   Wx::toString(wxString::Format(L"%.4g", static_cast<double>(number)))};
    }

    void setValue(double value) override { m_slider.changeByUser(static_cast<float>(value)); }

private:
    ChannelSlider& m_slider;
};

ChannelSlider::ChannelSlider(wxWindow* parent, const String& name, const Range& range,
                             Function<Rgb(float)> colorAt, Function<void(float)> onChange)
    : OskaBorder(parent),
      m_name(name),
      m_range(range),
      m_colorAt(std::move(colorAt)),
      m_onChange(std::move(onChange))
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(Wx::scaleByDpi(SIZE));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        paint(dc);
    });
    Bind(wxEVT_LEFT_DOWN, &ChannelSlider::onPress, this);
    Bind(wxEVT_LEFT_DCLICK, &ChannelSlider::onPress, this);
    Bind(wxEVT_MOTION, &ChannelSlider::onMotion, this);
    Bind(wxEVT_LEFT_UP, &ChannelSlider::onRelease, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { m_capture.end(); });
    Bind(wxEVT_SET_FOCUS, &ChannelSlider::onFocusChanged, this);
    Bind(wxEVT_KILL_FOCUS, &ChannelSlider::onFocusChanged, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh();
        event.Skip();
    });
    Bind(wxEVT_CHAR_HOOK, &ChannelSlider::onKey, this);
    Wx::bindGroupExit(*this);
    Wx::describeAs<Account>(*this);
}

ChannelSlider::~ChannelSlider() = default;

void ChannelSlider::setNumber(float number)
{
    m_given = number;
    m_number = clampedNumber(number, m_range.maximum);
    Refresh();
    Wx::updateAccessible(*this);
}

void ChannelSlider::changeByUser(float number)
{
    const float before = m_given;
    setNumber(clampedNumber(number, m_range.maximum));
    // NaN differs from every number.
    if (m_number != before)
        m_onChange(m_number);
}

// A step up must not make a number smaller that is beyond the maximum, nor a step down a negative number
// larger.
void ChannelSlider::step(float change)
{
    const bool leadsAway = change > 0.0f ? m_given > m_range.maximum : m_given < 0.0f;
    if (!leadsAway)
        changeByUser(m_number + change);
}

wxRect ChannelSlider::track() const
{
    return wxRect(GetClientSize()).Deflate(Wx::scaleByDpi(TRACK_MARGIN));
}

int ChannelSlider::knobPosition() const
{
    const wxRect area = track();
    const float share = m_number / m_range.maximum;
    return area.x + static_cast<int>(std::lround(share * static_cast<float>(std::max(area.width - 1, 0))));
}

float ChannelSlider::numberAt(int x) const
{
    const wxRect area = track();
    if (area.width < 2)
        return m_number;
    const float share = static_cast<float>(x - area.x) / static_cast<float>(area.width - 1);
    return std::clamp(share, 0.0f, 1.0f) * m_range.maximum;
}

void ChannelSlider::dragTo(int x)
{
    changeByUser(numberAt(x));
}

void ChannelSlider::paint(wxDC& dc) const
{
    dc.SetBackground(wxBrush(GetBackgroundColour()));
    dc.Clear();
    OskaBorder::draw(dc, {{0, 0}, Wx::toPixel(GetClientSize())}, borderState());
    const wxRect area = track();
    for (int x = area.x; x <= area.GetRight(); ++x)
        fillOverChecks(dc, wxRect(x, area.y, 1, area.height), m_colorAt(numberAt(x)));
    paintKnob(dc);
    if (!HasFocus())
        return;
    dc.SetPen(wxPen(Wx::toWxColour(Wx::GuiSkin::DEFAULT().text)));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(area.Inflate(1, 1));
}

// The knob is light with a dark outline, so that it can be seen before every colour.
void ChannelSlider::paintKnob(wxDC& dc) const
{
    const int width = Wx::scaleByDpi(KNOB_WIDTH);
    const wxRect area = track();
    const wxRect knob(knobPosition() - width / 2, area.y, width, area.height);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(*wxBLACK_BRUSH);
    dc.DrawRectangle(knob.Inflate(1, 1));
    dc.SetBrush(*wxWHITE_BRUSH);
    dc.DrawRectangle(knob);
}

void ChannelSlider::onPress(wxMouseEvent& event)
{
    SetFocus();
    m_capture.begin();
    dragTo(event.GetX());
}

void ChannelSlider::onMotion(wxMouseEvent& event)
{
    if (m_capture.isHeld())
        dragTo(event.GetX());
}

void ChannelSlider::onRelease(wxMouseEvent& /*event*/)
{
    m_capture.end();
}

void ChannelSlider::onFocusChanged(wxFocusEvent& event)
{
    event.Skip();
    Refresh();
}

void ChannelSlider::onKey(wxKeyEvent& event)
{
    const float page = PAGE_STEPS * m_range.step;
    switch (event.HasAnyModifiers() ? WXK_NONE : event.GetKeyCode()) {
    case WXK_RIGHT:
    case WXK_UP:
        return step(m_range.step);
    case WXK_LEFT:
    case WXK_DOWN:
        return step(-m_range.step);
    case WXK_PAGEUP:
        return step(page);
    case WXK_PAGEDOWN:
        return step(-page);
    case WXK_HOME:
        return changeByUser(0.0f);
    case WXK_END:
        return changeByUser(m_range.maximum);
    default:
        event.Skip();
    }
}

} // namespace Nolvex::Picker
