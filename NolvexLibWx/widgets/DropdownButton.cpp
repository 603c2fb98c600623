// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownButton.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "NolvexLibWx/paint/CrispLines.h"
#include "NolvexLibWx/widgets/detail/ButtonAccount.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Nolvex {

namespace {

constexpr const char* SOURCE = "widgets/DropdownButton";
constexpr int HOLD_TIME = 150; // milliseconds
constexpr int CORNER_LENGTH = 10;
constexpr int CORNER_INSET = 2;
constexpr RgbBytes DISABLED_CORNER{135, 135, 135};

wxSize itemSize()
{
    return Wx::scaleByDpi(wxSize(73, 24));
}

// Returns the ids, so that the caller reads the first entries of the arrays only after this check.
const Array<int>& checked(const Array<int>& ids, const Array<wxString>& labels,
                          const Array<Function<void()>>& callbacks)
{
    if (ids.empty() || labels.size() != ids.size() || callbacks.size() != ids.size())
        Nolvex::Detail::throwStopException(SOURCE, __LINE__);
    return ids;
}

} // namespace

/// The choices of the frame are the items of the button.
class Wx::DropdownButton::Account : public ButtonAccount
{
public:
    explicit Account(DropdownButton& button)
        : ButtonAccount(button, AccessibleRole::DROPDOWN_BUTTON), m_button(button)
    {}

    Flags<AccessibleState> states() const override
    {
        return toggleStates(m_button.isToggle()) | AccessibleState::HAS_POPUP;
    }

    int itemCount() const override { return static_cast<int>(m_button.m_items.size()); }

    String itemName(int index) const override
    {
        const Button* const item = m_button.choice(index + 1);
        return item != nullptr ? toString(item->GetLabel()) : String();
    }

    void selectItem(int index) override { m_button.makeChoice(index + 1); }

private:
    DropdownButton& m_button;
};

Wx::DropdownButton::DropdownButton(wxWindow* parent, const GuiSkin& skin, const Array<int>& ids,
                                   const Array<wxString>& labels, const wxBitmap& bitmap,
                                   const wxBitmap& disabledBitmap, const Array<Function<void()>>& callbacks,
                                   Behavior behavior, bool enabled)
    // Braces evaluate the arguments from left to right, so the arrays are checked before they are read.
    : Button{parent,
             skin,
             checked(ids, labels, callbacks).front(),
             labels.front(),
             bitmap,
             disabledBitmap,
             callbacks.front(),
             behavior == Behavior::TOGGLE ? Button::Behavior::TOGGLE : Button::Behavior::PUSH,
             enabled,
             OskaBorderState::ENABLED},
      m_swapOnSelect(behavior == Behavior::SWAP)
{
    createItems(ids, labels, callbacks);
    m_timer.SetOwner(this);
    Bind(wxEVT_TIMER, &DropdownButton::onHeld, this);
    Bind(wxEVT_MOTION, &DropdownButton::onMouseMoved, this);
    SetMinSize(itemSize());
    describeAs<Account>(*this);
}

Wx::DropdownButton::~DropdownButton() = default;

void Wx::DropdownButton::createItems(const Array<int>& ids, const Array<wxString>& labels,
                                     const Array<Function<void()>>& callbacks)
{
    m_popup = new DropdownFrame(this);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    for (std::size_t i = 1; i < ids.size(); ++i) {
        auto* item = new Button(m_popup, skin(), ids[i], labels[i], wxBitmap(), wxBitmap(), callbacks[i],
                                Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
        item->Show(true);
        item->SetMinSize(itemSize());
        sizer->Add(item, 0, 0, 0);
        m_items.emplace_back(item);
    }
    m_popup->SetSizerAndFit(sizer);
    m_popup->Hide();
}

// Returns null if the program has destroyed the button of that choice.
Wx::Button* Wx::DropdownButton::choice(int index) const
{
    if (index < 1 || index > static_cast<int>(m_items.size()))
        Nolvex::Detail::throwStopException(SOURCE, __LINE__);
    return m_items[static_cast<std::size_t>(index) - 1].get();
}

void Wx::DropdownButton::setText(int index, const String& text)
{
    if (index == 0)
        Button::SetLabel(toWxString(text));
    else if (Button* const item = choice(index))
        item->SetLabel(toWxString(text));
    updateAccessible(*this);
}

void Wx::DropdownButton::makeChoice(int index)
{
    if (index == 0) {
        doClick(wxPoint(GetClientSize().x / 2, GetClientSize().y / 2));
        return;
    }
    const wxWeakRef<Button> item(choice(index));
    if (!item)
        return;
    const wxWeakRef<DropdownButton> self(this);
    callBackSafely(*item);
    // The callback may have destroyed either.
    if (self && item && swapsOnSelect())
        swapWithMain(*item);
}

void Wx::DropdownButton::onMouseDown(wxMouseEvent& /*event*/)
{
    if (!borderState().has(OskaBorderState::ENABLED))
        return;
    beginPress();
    m_timer.StartOnce(HOLD_TIME);
    m_hoveredItem = this;
}

void Wx::DropdownButton::onHeld(wxTimerEvent& /*event*/)
{
    if (!isPressed() || !m_popup)
        return;
    for (const wxWeakRef<Button>& item : m_items) {
        if (item)
            item->setHovered(false);
    }
    m_popup->open();
}

bool Wx::DropdownButton::isOpen() const
{
    return m_popup && m_popup->IsShown();
}

void Wx::DropdownButton::closeDropdown()
{
    if (m_popup)
        m_popup->Hide();
}

// The position is compared on the screen, because the frame with the items is a top-level window.
bool Wx::DropdownButton::isOver(const Button& item, const wxMouseEvent& event) const
{
    return Detail::screenRect(item).Contains(ClientToScreen(event.GetPosition()));
}

void Wx::DropdownButton::onMouseMoved(wxMouseEvent& event)
{
    if (!isOpen())
        return;
    for (const wxWeakRef<Button>& item : m_items) {
        if (!item)
            continue;
        const bool over = isOver(*item, event);
        item->setHovered(over);
        if (over && item.get() != m_hoveredItem.get())
            markHovered(item.get());
    }
}

void Wx::DropdownButton::markHovered(Button* item)
{
    item->Refresh();
    if (m_hoveredItem)
        m_hoveredItem->Refresh();
    m_hoveredItem = item;
    Refresh();
}

void Wx::DropdownButton::onMouseUp(wxMouseEvent& event)
{
    if (!isPressed())
        return;
    m_timer.Stop();
    freeMouse();
    const wxWeakRef<DropdownButton> self(this);
    const wxWeakRef<Button> chosen(isOpen() ? choose(event) : nullptr);
    // The callback of the chosen item may have destroyed the button.
    if (!self)
        return;
    closeDropdown();
    // A handler that hears of the hiding may have destroyed the button.
    if (!self)
        return;
    setHovered(false);
    Button::onMouseUp(event);
    if (self && chosen && swapsOnSelect())
        swapWithMain(*chosen);
}

// Calls the callback of the item under the mouse. Returns the item, or null if the mouse is over no item or
// the callback has destroyed the item.
Wx::Button* Wx::DropdownButton::choose(wxMouseEvent& event)
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [&](const wxWeakRef<Button>& item) {
        return item && isOver(*item, event);
    });
    if (found == m_items.end())
        return nullptr;
    const wxWeakRef<Button> item(*found);
    callBackSafely(*item);
    if (item)
        passMouseUp(*item, event);
    return item.get();
}

void Wx::DropdownButton::callBackSafely(const Button& item)
{
    const wxWeakRef<DropdownButton> self(this);
    try {
        callBack(item);
    } catch (...) {
        if (self) {
            cancelPress();
            closeDropdown();
        }
        throw;
    }
}

bool Wx::DropdownButton::swapsOnSelect() const
{
    return m_swapOnSelect && !isToggle();
}

void Wx::DropdownButton::swapWithMain(Button& item)
{
    const wxString mainLabel = GetLabel();
    Button::SetLabel(item.GetLabel());
    item.SetLabel(mainLabel);
    swapCallbacks(*this, item);
    updateAccessible(*this);
}

void Wx::DropdownButton::onCaptureLost(wxMouseCaptureLostEvent& event)
{
    Button::onCaptureLost(event);
    closeDropdown();
}

void Wx::DropdownButton::onButtonPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, {{0, 0}, toPixel(dc.GetSize())}, face());
    for (const wxWeakRef<Button>& item : m_items) {
        if (item)
            item->Update();
    }
}

Wx::DropdownButton::Face Wx::DropdownButton::face() const
{
    return {.button = Button::face(), .accent = skin().accent};
}

void Wx::DropdownButton::draw(wxDC& dc, const Bucket& rect, const Face& face)
{
    Button::draw(dc, rect, face.button);
    const wxPoint corner(rect.max.x - CORNER_INSET, rect.max.y - CORNER_INSET);
    const int length = scaleByDpi(CORNER_LENGTH);
    const bool enabled = face.button.border.has(OskaBorderState::ENABLED);
    const bool lit = enabled && face.button.border.has(OskaBorderState::HOVERED);
    dc.SetBrush(wxBrush(toWxColour(enabled ? face.accent : DISABLED_CORNER)));
    CrispLines lines(dc);
    lines.setPen(lit ? SELECTED() : INNER());
    lines.drawPolygon(std::array{corner, wxPoint(rect.max.x - length, corner.y),
                                 wxPoint(corner.x, rect.max.y - length), corner});
}

} // namespace Nolvex
