// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownButton.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/CrispLines.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/ButtonAccount.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <utility>

namespace Nolvex {

namespace {

constexpr const char* SOURCE = "widgets/DropdownButton";
constexpr int HOLD_TIME = 150; // milliseconds
// Some window managers insist on a place of their own.
constexpr int MOST_MOVES = 3;
constexpr int CORNER_LENGTH = 10;
constexpr int CORNER_INSET = 2;
constexpr RgbBytes DISABLED_CORNER{135, 135, 135};

wxSize itemSize()
{
    return Wx::scaleByDpi(wxSize(73, 24));
}

// Looked at before the first entry is.
const Array<int>& checked(const Array<int>& ids, const Array<wxString>& labels,
                          const Array<Function<void()>>& callbacks)
{
    if (ids.empty() || labels.size() != ids.size() || callbacks.size() != ids.size())
        Nolvex::Detail::throwStopException(SOURCE, __LINE__);
    return ids;
}

bool isWithin(int offset, int length)
{
    return static_cast<unsigned>(offset) < static_cast<unsigned>(length);
}

} // namespace

Wx::DropdownButton::DropdownButton(wxWindow* parent, const GuiSkin& skin, const Array<int>& ids,
                                   const Array<wxString>& labels, const wxBitmap& bitmap,
                                   const wxBitmap& disabledBitmap, const Array<Function<void()>>& callbacks,
                                   Behavior behavior, bool enabled)
    // Braces, within which the arrays are looked at from left to right.
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
    createPopup(ids, labels, callbacks);
    m_timer.SetOwner(this);
    Bind(wxEVT_TIMER, &DropdownButton::onHeld, this);
    Bind(wxEVT_MOTION, &DropdownButton::onMouseMoved, this);
    SetMinSize(itemSize());
    describeAs<ButtonAccount, AccessibleRole::DROPDOWN_BUTTON>(*this);
}

Wx::DropdownButton::~DropdownButton()
{
    // It goes after the members have gone.
    m_popup->Unbind(wxEVT_MOVE, &DropdownButton::onPopupMoved, this);
}

void Wx::DropdownButton::createPopup(const Array<int>& ids, const Array<wxString>& labels,
                                     const Array<Function<void()>>& callbacks)
{
    m_popup = new wxFrame(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                          wxBORDER_NONE | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    for (std::size_t i = 1; i < ids.size(); ++i) {
        auto* item = new Button(m_popup, skin(), ids[i], labels[i], wxBitmap(), wxBitmap(), callbacks[i],
                                Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
        item->Show(true);
        item->SetMinSize(itemSize());
        sizer->Add(item, 0, 0, 0);
        m_items.emplace_back(item);
    }
    // Whoever closes it with the keyboard must not destroy what the button goes on using.
    m_popup->Bind(wxEVT_CLOSE_WINDOW, [popup = m_popup](wxCloseEvent&) { popup->Hide(); });
    m_popup->Bind(wxEVT_MOVE, &DropdownButton::onPopupMoved, this);
    m_popup->SetSizerAndFit(sizer);
    m_popup->Hide();
}

void Wx::DropdownButton::setText(int index, const String& text)
{
    if (index < 0 || index > static_cast<int>(m_items.size()))
        Nolvex::Detail::throwStopException(SOURCE, __LINE__);
    if (index == 0)
        Button::SetLabel(toWxString(text));
    else if (const wxWeakRef<Button>& item = m_items[static_cast<std::size_t>(index) - 1])
        item->SetLabel(toWxString(text));
}

void Wx::DropdownButton::onMouseDown(wxMouseEvent& /*event*/)
{
    if (!m_state.has(OskaBorderState::ENABLED))
        return;
    press();
    m_timer.StartOnce(HOLD_TIME);
    m_hoveredItem = this;
}

void Wx::DropdownButton::onHeld(wxTimerEvent& /*event*/)
{
    if (!isPressed())
        return;
    m_popup->Show(true);
    m_movesLeft = MOST_MOVES;
    movePopup();
    Refresh();
}

void Wx::DropdownButton::movePopup()
{
    const wxPoint below = GetScreenPosition() + wxPoint(0, GetSize().y);
    if (m_popup->GetPosition() == below || m_movesLeft == 0)
        return;
    --m_movesLeft;
    m_popup->Move(below);
}

// A window manager may place what is new to it, after we did.
void Wx::DropdownButton::onPopupMoved(wxMoveEvent& event)
{
    event.Skip();
    if (m_popup->IsShown())
        movePopup();
}

bool Wx::DropdownButton::isOver(const Button& item, const wxMouseEvent& event) const
{
    const wxPoint offset = event.GetPosition() + GetScreenPosition() - item.GetScreenPosition();
    return isWithin(offset.x, item.GetSize().x) && isWithin(offset.y, item.GetSize().y);
}

void Wx::DropdownButton::onMouseMoved(wxMouseEvent& event)
{
    if (!m_popup->IsShown())
        return;
    for (const wxWeakRef<Button>& item : m_items) {
        if (!item)
            continue;
        const bool over = isOver(*item, event);
        item->m_state.set(OskaBorderState::HOVERED, over);
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
    capture().end();
    const wxWeakRef<DropdownButton> self(this);
    wxWeakRef<Button> chosen;
    if (m_popup->IsShown()) {
        for (const wxWeakRef<Button>& item : m_items) {
            if (!item || !isOver(*item, event))
                continue;
            chosen = item;
            if (item->m_clickCallback)
                item->m_clickCallback();
            // It may have destroyed the button, and the items with it, or the item alone.
            if (!self)
                return;
            if (item)
                item->onMouseUp(event);
        }
    }
    m_popup->Hide();
    m_state.set(OskaBorderState::HOVERED, false);
    Button::onMouseUp(event);
    if (self && chosen && swapsOnSelect())
        swapWithMain(*chosen);
}

bool Wx::DropdownButton::swapsOnSelect() const
{
    return m_swapOnSelect && !isToggle();
}

void Wx::DropdownButton::swapWithMain(Button& item)
{
    const wxString mainLabel = m_label;
    Button::SetLabel(item.m_label);
    item.SetLabel(mainLabel);
    std::swap(m_clickCallback, item.m_clickCallback);
}

void Wx::DropdownButton::onCaptureLost(wxMouseCaptureLostEvent& event)
{
    Button::onCaptureLost(event);
    m_popup->Hide();
}

void Wx::DropdownButton::onButtonPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    drawFace(dc);
    for (const wxWeakRef<Button>& item : m_items) {
        if (item)
            item->Update();
    }
}

void Wx::DropdownButton::drawFace(wxDC& dc) const
{
    Button::drawFace(dc);
    const wxSize size = dc.GetSize();
    const wxPoint corner(size.x - CORNER_INSET, size.y - CORNER_INSET);
    const int length = scaleByDpi(CORNER_LENGTH);
    const bool enabled = m_state.has(OskaBorderState::ENABLED);
    dc.SetBrush(wxBrush(toWxColour(enabled ? skin().accent : DISABLED_CORNER)));
    CrispLines lines(dc);
    lines.setPen(enabled && m_state.has(OskaBorderState::HOVERED) ? SELECTED() : INNER());
    lines.drawPolygon(
        std::array{corner, wxPoint(size.x - length, corner.y), wxPoint(corner.x, size.y - length), corner});
}

} // namespace Nolvex
