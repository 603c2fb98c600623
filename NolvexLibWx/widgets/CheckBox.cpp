// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CheckBox.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/paint/CheckBoxExtent.h"
#include "NolvexLibWx/paint/DensePixels.h"
#include "NolvexLibWx/paint/PerScale.h"
#include "NolvexLibWx/platform/OutlineFont.h"
#include "NolvexLibWx/platform/ReadableSigns.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/pen.h>
#include <wx/weakref.h>

#include <memory>
#include <utility>

namespace Nolvex {

namespace {

// These values were found by eye with the fonts of each scale.
constexpr PerScale<int> LABEL_Y{-1, -3, -4};
constexpr PerScale<std::array<wxDash, 2>> FOCUS_DASHES{{{1, 2}, {2, 1}, {2, 3}}};

wxSize sizeFor(const String& label, wxSize size)
{
    if (label.isEmpty() && size == wxDefaultSize)
        size = wxSize(CHECK_BOX_LENGTH, CHECK_BOX_LENGTH);
    else if (!label.isEmpty() && size.y == wxDefaultCoord)
        size.y = CHECK_BOX_LENGTH;
    return Wx::scaleByDpi(size);
}

/// While an object of this class lives, the context paints readable signs in an area of the DC.
class ReadableSigns
{
public:
    ReadableSigns(wxGraphicsContext& context, const wxDC& dc, int left, int width) : m_context(context)
    {
        m_context.PushState();
        if (dc.GetLayoutDirection() == wxLayout_RightToLeft)
            Platform::turnToReadableSigns(m_context, dc, left, width);
    }

    ~ReadableSigns() { m_context.PopState(); }

    ReadableSigns(const ReadableSigns&) = delete;
    ReadableSigns& operator=(const ReadableSigns&) = delete;

private:
    wxGraphicsContext& m_context;
};

void drawCheckMark(wxGraphicsContext& context, const wxPoint& corner)
{
    const auto vertex = [&corner](int x, int y) {
        const Pixel point = Wx::scaleByDpi(Pixel{x, y});
        return wxPoint2DDouble(corner.x + point.x, corner.y + point.y);
    };
    wxGraphicsPath mark = context.CreatePath();
    mark.MoveToPoint(vertex(3, 7));
    mark.AddLineToPoint(vertex(6, 10));
    mark.AddLineToPoint(vertex(11, 3));
    mark.AddLineToPoint(vertex(6, 9));
    mark.CloseSubpath();
    context.SetPen(*wxStockGDI::GetPen(wxStockGDI::PEN_WHITE));
    const DensePixelOffset offset(&context);
    context.DrawPath(mark, wxWINDING_RULE);
}

// A wxDC keeps labels readable in a layout from right to left, which a wxGraphicsContext does not.
void drawMirroredLabel(wxDC& dc, const wxPoint& corner, const Wx::CheckBox::Face& face)
{
    dc.SetTextForeground(face.labelColour);
    dc.DrawText(face.label, corner);
}

void drawFocusMark(wxGraphicsContext& context, const wxPoint& corner, const wxSize& text,
                   const wxColour& colour)
{
    // The pen refers to the dashes. They are computed at the first focused paint, and stay so at any later
    // scale.
    static std::array<wxDash, 2> dashes = atScreenScale(FOCUS_DASHES);
    wxPen pen(colour, Wx::scaleByDpi(1), wxPENSTYLE_USER_DASH);
    pen.SetDashes(static_cast<int>(dashes.size()), dashes.data());
    context.SetPen(pen);
    const DensePixelOffset offset(&context);
    context.DrawRectangle(corner.x + Wx::scaleByDpi(CHECK_BOX_LABEL_X - 1), corner.y,
                          text.x + Wx::scaleByDpi(2), text.y - Wx::scaleByDpi(1));
}

class CheckBoxAccount : public Wx::AccessibleControl
{
public:
    explicit CheckBoxAccount(Wx::CheckBox& checkBox) : m_checkBox(checkBox) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::CHECK_BOX; }

    String name() const override { return Wx::toString(m_checkBox.GetLabelText()); }

    Flags<Wx::AccessibleState> states() const override
    {
        Flags<Wx::AccessibleState> states = Wx::AccessibleState::CHECKABLE;
        states.set(Wx::AccessibleState::CHECKED, m_checkBox.GetValue());
        return states;
    }

    Array<String> actions() const override { return {L"click"}; }

    void doAction(int /*index*/) override { m_checkBox.setValue(!m_checkBox.GetValue(), true); }

private:
    Wx::CheckBox& m_checkBox;
};

} // namespace

Wx::CheckBox::CheckBox(wxWindow* parent, int id, const String& label, const wxPoint& pos, const wxSize& size,
                       bool enabled)
{
    Create(parent, id, toWxString(label), pos, sizeFor(label, size), 0, wxDefaultValidator,
           wxASCII_STR(wxCheckBoxNameStr));
    Bind(wxEVT_CHECKBOX, &CheckBox::onChanged, this);
    Bind(wxEVT_PAINT, &CheckBox::onPaint, this);
    Bind(wxEVT_KILL_FOCUS, &CheckBox::onFocusLost, this);
    Bind(wxEVT_KEY_DOWN, &CheckBox::onKeyDown, this);
    Bind(wxEVT_KEY_UP, &CheckBox::onKeyUp, this);
    wxWindowBase::Enable(enabled);
    bindGroupExit(*this);
    describeAs<CheckBoxAccount>(*this);
}

Wx::CheckBox::~CheckBox() = default;

bool Wx::CheckBox::SetFont(const wxFont& font)
{
    // The function of a native check box would do more with the font than other controls do.
    return wxControlBase::SetFont(setDefaultFontSize(font, 1.0f)); // NOLINT(bugprone-parent-virtual-call)
}

void Wx::CheckBox::setValue(bool value, bool notify)
{
    SetValue(value);
    if (!notify)
        return;
    wxCommandEvent event(wxEVT_CHECKBOX, GetId());
    InitCommandEvent(event);
    event.SetInt(Get3StateValue());
    event.SetEventObject(this);
    Command(event);
}

void Wx::CheckBox::setChangeCallback(Function<void(bool)> onChange)
{
    m_changeCallback = std::move(onChange);
}

void Wx::CheckBox::onChanged(wxCommandEvent& event)
{
    const wxWeakRef<CheckBox> self(this);
    if (m_changeCallback)
        m_changeCallback(GetValue());
    // The callback may have destroyed the check box; then no further handlers can be looked for.
    if (!self)
        return;
    Refresh(true, nullptr);
    event.Skip();
}

void Wx::CheckBox::onFocusLost(wxFocusEvent& event)
{
    // The release of the key goes to another window.
    m_tabPressed = false;
    Refresh(true, nullptr);
    event.Skip();
}

void Wx::CheckBox::onKeyDown(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_TAB)
        m_tabPressed = true;
    event.Skip();
}

void Wx::CheckBox::onKeyUp(wxKeyEvent& event)
{
    event.Skip();
    if (!std::exchange(m_tabPressed, false))
        return;
    const wxWeakRef<CheckBox> self(this);
    moveFocus(this, event.ShiftDown() ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
    // A handler of the focus may have destroyed the check box; then no further handlers can be looked for.
    if (self)
        Refresh(true, nullptr);
    else
        event.Skip(false);
}

void Wx::CheckBox::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, {{0, 0}, toPixel(dc.GetSize())}, face());
}

Wx::CheckBox::Face Wx::CheckBox::face() const
{
    const wxColour colour = GetForegroundColour();
    return {.label = GetLabelText(),
            .font = GetFont(),
            .labelColour = IsEnabled() ? colour : toWxColour(GuiSkin::DEFAULT().disabledText),
            .focusColour = colour,
            .checked = GetValue(),
            .focused = HasFocus()};
}

void Wx::CheckBox::draw(wxDC& dc, const Bucket& rect, const Face& face)
{
    const wxPoint corner(rect.min.x, rect.min.y);
    const int box = scaleByDpi(CHECK_BOX_LENGTH);
    OskaBorder::draw(dc, {rect.min, {corner.x + box, corner.y + box}}, OskaBorderState::ENABLED);
    dc.SetFont(face.font);
    const wxSize text = dc.GetTextExtent(face.label);
    const wxPoint label(corner.x + scaleByDpi(CHECK_BOX_LABEL_X), corner.y + atScreenScale(LABEL_Y));
    const bool mirrored = dc.GetLayoutDirection() == wxLayout_RightToLeft;
    if (mirrored)
        drawMirroredLabel(dc, label, face);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::CreateFromUnknownDC(dc));
    if (!context)
        return;
    if (face.checked) {
        const ReadableSigns readable(*context, dc, corner.x, box);
        drawCheckMark(*context, corner);
    }
    if (!mirrored) {
        context->SetFont(Platform::outlineFont(face.font), face.labelColour);
        context->DrawText(face.label, label.x, label.y);
    }
    if (face.focused) {
        const ReadableSigns placed(*context, dc, corner.x + scaleByDpi(CHECK_BOX_LABEL_X - 1),
                                   text.x + scaleByDpi(2));
        drawFocusMark(*context, corner, text, face.focusColour);
    }
}

} // namespace Nolvex
