// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ColorPickerButton.h"

#include "NolvexLib/MainThread.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/paint/CrispLines.h"
#include "NolvexLibWx/paint/DensePixels.h"
#include "NolvexLibWx/platform/DragSource.h"
#include "NolvexLibWx/widgets/detail/ColorPickerButtonDropTarget.h"
#include "NolvexLibWx/widgets/detail/RgbDataObject.h"

#include <wx/dcclient.h>
#include <wx/image.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace Nolvex {

namespace {

constexpr int CONTRAST = 30; // of the hatching, in steps of a byte
constexpr int STRIPE_PERIOD = 10;
constexpr int STRIPE_WIDTH = 5;

wxPoint& lastPickerPosition()
{
    static wxPoint position = wxDefaultPosition;
    return position;
}

std::uint8_t contrasting(std::uint8_t channel)
{
    return static_cast<std::uint8_t>(channel <= CONTRAST ? channel + CONTRAST : channel - CONTRAST);
}

// Returns the hatched area as an image, because drawing its pixels one by one on the screen would be slow.
wxImage hatchedImage(const wxRect& area, const RgbBytes& color)
{
    const RgbBytes stripe{contrasting(color.r), contrasting(color.g), contrasting(color.b)};
    wxImage image(area.GetSize(), false);
    for (int y = 0; y < area.height; ++y) {
        for (int x = 0; x < area.width; ++x) {
            const bool isStripe = (area.x + x + area.y + y) % STRIPE_PERIOD < STRIPE_WIDTH;
            const RgbBytes& shown = isStripe ? stripe : color;
            image.SetRGB(x, y, shown.r, shown.g, shown.b);
        }
    }
    return image;
}

// Fills the rectangle with the brush of the DC.
void drawBox(wxDC& dc, const wxRect& box, const wxColour& outline)
{
    CrispLines lines(dc);
    lines.setPen(wxPen(outline));
    lines.drawRectangle(box);
}

void paintSwatch(wxDC& dc, const wxSize& size, const wxColour& color, bool isHatched)
{
    drawBox(dc, wxRect(size), *wxBLACK);
    const wxRect inner(1, 1, size.x - 2, size.y - 2);
    if (inner.width <= 0 || inner.height <= 0)
        return;
    dc.SetBrush(wxBrush(color));
    drawBox(dc, inner, color);
    if (isHatched)
        drawSharp(dc, wxBitmap(hatchedImage(inner, Wx::toRgbBytes(color))), inner.GetTopLeft(), false);
}

bool isDisplayable(float channel)
{
    return channel >= 0.0f && channel <= 1.0f;
}

void appendNumber(std::string& text, float number)
{
    char digits[32] = {};
    if (!text.empty())
        text += ' ';
    text.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

// Returns the form "#804020" if nothing is lost but precision, or else the four numbers.
String colorText(const Rgb& color)
{
    if (isDisplayable(color.r) && isDisplayable(color.g) && isDisplayable(color.b) && color.a == 1.0f)
        return Wx::toString(Wx::toWxColour(color).GetAsString(wxC2S_HTML_SYNTAX));
    std::string numbers;
    for (const float channel : {color.r, color.g, color.b, color.a})
        appendNumber(numbers, channel);
    return String::fromAscii(numbers);
}

} // namespace

class Wx::ColorPickerButton::Account : public AccessibleControl
{
public:
    explicit Account(ColorPickerButton& button) : m_button(button) {}

    AccessibleRole role() const override { return AccessibleRole::PUSH_BUTTON; }

    String name() const override { return m_button.m_title; }

    String valueText() const override { return colorText(m_button.m_color); }

    Array<String> actions() const override { return {L"open"}; }

    void doAction(int /*index*/) override { m_button.openPicker(); }

private:
    ColorPickerButton& m_button;
};

// Has the factory of a button while a picker runs, so that the button opens no second picker and the factory
// lives as long as its picker. The button, if it still exists, gets the factory back.
class Wx::ColorPickerButton::FactoryLoan : private Nolvex::Noncopyable
{
public:
    explicit FactoryLoan(ColorPickerButton& button)
        : m_button(&button), m_factory(std::move(button.m_factory))
    {}

    ~FactoryLoan()
    {
        if (m_button)
            m_button->m_factory = std::move(m_factory);
    }

    IColorPickerFactory* get() const { return m_factory.get(); }

private:
    wxWeakRef<ColorPickerButton> m_button;
    AutoPtr<IColorPickerFactory> m_factory;
};

Wx::ColorPickerButton::ColorPickerButton(AutoPtr<IColorPickerFactory>&& factory, wxWindow* parent,
                                         const String& title, wxSize size, bool enabled)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, scaleByDpi(size), wxTAB_TRAVERSAL | wxBORDER_NONE),
      m_title(title),
      m_enabledLook(enabled),
      m_factory(std::move(factory))
{
    bindEvents();
    SetDropTarget(new ColorPickerButtonDropTarget(*this));
    describeAs<Account>(*this);
}

Wx::ColorPickerButton::~ColorPickerButton() = default;

void Wx::ColorPickerButton::bindEvents()
{
    // Every pixel is painted, and erasing the background before would flicker.
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    Bind(wxEVT_PAINT, &ColorPickerButton::onPaint, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &ColorPickerButton::onCaptureLost, this);
    Bind(wxEVT_LEAVE_WINDOW, &ColorPickerButton::onLeft, this);
    Bind(wxEVT_LEFT_DOWN, &ColorPickerButton::onLeftDown, this);
    Bind(wxEVT_LEFT_UP, &ColorPickerButton::onLeftUp, this);
    Bind(wxEVT_MOTION, &ColorPickerButton::onMotion, this);
}

void Wx::ColorPickerButton::setColor(const Rgb& color, bool notify)
{
    const Rgb kept = color; // the callbacks may destroy the original
    take(kept);
    if (!notify)
        return;
    const wxWeakRef<ColorPickerButton> self(this);
    if (onChange)
        onChange(kept);
    if (self && onPreview)
        onPreview(kept);
}

void Wx::ColorPickerButton::setTitle(const String& title)
{
    m_title = title;
    updateAccessible(*this);
}

bool Wx::ColorPickerButton::Enable(bool enable)
{
    m_enabledLook = enable;
    const bool changed = wxPanel::Enable(enable);
    Refresh();
    return changed;
}

void Wx::ColorPickerButton::take(const Rgb& color)
{
    m_color = color;
    ++m_changes;
    display(color);
    updateAccessible(*this);
}

void Wx::ColorPickerButton::display(const Rgb& color)
{
    m_displayColor = color;
    Refresh();
}

void Wx::ColorPickerButton::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    paintSwatch(dc, GetClientSize(), toWxColour(m_displayColor), !m_enabledLook);
}

void Wx::ColorPickerButton::onLeftDown(wxMouseEvent& /*event*/)
{
    m_mouseLeft = false;
    m_press.begin(Press::Means::MOUSE);
}

void Wx::ColorPickerButton::onLeftUp(wxMouseEvent& event)
{
    if (m_press.release(event.GetPosition()) == Press::Outcome::COMPLETED)
        openPicker();
}

void Wx::ColorPickerButton::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    m_press.cancel();
}

// The drag begins at the motion that wxWidgets reports next: dragFrom says why.
void Wx::ColorPickerButton::onLeft(wxMouseEvent& /*event*/)
{
    m_mouseLeft = HasCapture();
}

void Wx::ColorPickerButton::onMotion(wxMouseEvent& event)
{
    const bool dragBegins = std::exchange(m_mouseLeft, false) && m_press.cancel() && event.LeftIsDown();
    event.Skip(!dragBegins);
    if (!dragBegins)
        return;
    RgbDataObject data(m_color);
    Platform::dragFrom(*this, data); // the button may be destroyed meanwhile
}

void Wx::ColorPickerButton::openPicker()
{
    const FactoryLoan factory(*this);
    if (factory.get() == nullptr)
        return;
    const wxWeakRef<ColorPickerButton> self(this);
    // The copies outlive the button if the factory lets it be destroyed.
    const String title = m_title;
    const wxPoint position = lastPickerPosition();
    const Rgb color = m_color;
    const AutoPtr<IColorPicker> picker =
        factory.get()->createPicker(getWindowNativeHandle(this), title, position, color);
    if (self && picker != nullptr)
        runPicker(*picker);
}

void Wx::ColorPickerButton::runPicker(IColorPicker& picker)
{
    const wxWeakRef<ColorPickerButton> self(this);
    picker.setPreviewCallback([self](const Rgb& color) {
        if (self)
            self->preview(color);
    });
    picker.setCommitCallback([self](const Rgb& color) {
        if (self)
            self->commit(color);
    });
    picker.runModal();
    lastPickerPosition() = picker.getPosition();
    // Other windows may show the colour.
    for (wxWindow* const window : wxTopLevelWindows)
        window->Refresh();
}

void Wx::ColorPickerButton::preview(const Rgb& color)
{
    const Rgb kept = color;
    if (!isMainThread()) {
        const unsigned changes = m_changes;
        if (onPreview)
            onPreview(kept);
        // Windows belong to the main thread, where the colour may be set meanwhile.
        CallAfter([this, kept, changes] {
            if (changes == m_changes)
                display(kept);
        });
        return;
    }
    const wxWeakRef<ColorPickerButton> self(this);
    if (onPreview)
        onPreview(kept);
    if (!self)
        return;
    display(kept);
    Update();
}

void Wx::ColorPickerButton::commit(const Rgb& color)
{
    const Rgb kept = color;
    take(kept);
    if (onChange)
        onChange(kept);
}

} // namespace Nolvex
