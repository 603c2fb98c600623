// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ComboBox.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/MemoryImages.h"
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/ScopedClippingRegion.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "NolvexLibWx/paint/DensePixels.h"
#include "NolvexLibWx/resources/ControlArrows.h"
#include "NolvexLibWx/widgets/ComboBoxDropdown.h"
#include "NolvexLibWx/widgets/detail/ComboBoxSelection.h"
#include "NolvexLibWx/widgets/detail/TypedText.h"

#include <wx/dcclient.h>
#include <wx/utils.h>

namespace Nolvex {

namespace {

constexpr int BOX_HEIGHT = 24; // design units
constexpr int EDGE = 2;        // the frame and the inner line
constexpr int TEXT_X = 8;
constexpr int PAGE_ROWS = 17;
constexpr int FOCUS_TIME = 100; // milliseconds
constexpr RgbBytes DISABLED_TEXT{110, 110, 110};

wxBitmap loadArrow(const unsigned* data, int size)
{
    return Wx::scaleByDpi(Wx::convertMemoryToBitmap(data, size, wxBITMAP_TYPE_ANY));
}

// Returns how many items the key moves the selection by, or 0 for keys that do not move it.
int stepsOf(int key)
{
    switch (key) {
    case WXK_UP:
    case WXK_NUMPAD_UP:
        return -1;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
        return 1;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP:
        return -PAGE_ROWS;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
        return PAGE_ROWS;
    default:
        return 0;
    }
}

} // namespace

class Wx::ComboBox::Account : public AccessibleControl
{
public:
    explicit Account(ComboBox& box) : m_box(box) {}

    AccessibleRole role() const override { return AccessibleRole::COMBO_BOX; }

    String name() const override { return {}; }

    Flags<AccessibleState> states() const override
    {
        Flags<AccessibleState> states = AccessibleState::EXPANDABLE;
        states.set(AccessibleState::EXPANDED, m_box.isOpen());
        return states;
    }

    Array<String> actions() const override { return {m_box.isOpen() ? L"close" : L"open"}; }

    void doAction(int /*index*/) override { m_box.setOpen(!m_box.isOpen()); }

    int itemCount() const override { return m_box.getCount(); }

    String itemName(int index) const override
    {
        return m_box.m_selection->items()[static_cast<std::size_t>(index)].text;
    }

    Optional<int> selectedItem() const override { return m_box.getSelectedIndex(); }

    void selectItem(int index) override { m_box.selectByUser(index); }

private:
    ComboBox& m_box;
};

Wx::ComboBox::ComboBox(wxWindow* parent, int id, int width, const Function<void(int)>& onSelect,
                       const Function<void(wxWindow*, WindowEvent)>& windowCallback, bool enabled)
    : OskaBorder(parent, OskaBorderState::ENABLED, id),
      m_arrow(loadArrow(Resources::COMBO_BOX_ARROW, Resources::COMBO_BOX_ARROW_SIZE)),
      m_pressedArrow(loadArrow(Resources::COMBO_BOX_PRESSED_ARROW, Resources::COMBO_BOX_PRESSED_ARROW_SIZE)),
      m_windowCallback(windowCallback),
      m_selection(std::make_unique<ComboBoxSelection>(*this, onSelect)),
      m_typed(std::make_unique<TypedText>()),
      m_dropdown(new ComboBoxDropdown(*this, *m_selection, m_skin))
{
    if (m_windowCallback)
        m_windowCallback(m_dropdown, WindowEvent::CREATED);
    bindEvents();
    SetMinSize(scaleByDpi(wxSize(width, BOX_HEIGHT)));
    SetSize(GetMinSize());
    OskaBorder::Enable(enabled);
    bindGroupExit(*this);
    describeAs<Account>(*this);
}

Wx::ComboBox::~ComboBox()
{
    if (m_windowCallback)
        m_windowCallback(m_dropdown, WindowEvent::DESTROYED);
    // The list refers to members of the box.
    DestroyChildren();
}

void Wx::ComboBox::bindEvents()
{
    Bind(wxEVT_LEFT_DOWN, &ComboBox::onClicked, this);
    Bind(wxEVT_LEFT_DCLICK, &ComboBox::onClicked, this);
    Bind(wxEVT_SET_FOCUS, &ComboBox::onFocused, this);
    Bind(wxEVT_KILL_FOCUS, &ComboBox::onFocusLost, this);
    Bind(wxEVT_TIMER, &ComboBox::onFocusStillLost, this, m_focusTimer.GetId());
    Bind(wxEVT_PAINT, &ComboBox::onBoxPaint, this);
    Bind(wxEVT_MOUSEWHEEL, &ComboBox::onWheel, this);
    Bind(wxEVT_CHAR_HOOK, &ComboBox::onKey, this);
    Bind(wxEVT_CHAR, &ComboBox::onCharacter, this);
}

void Wx::ComboBox::setData(ArrayView<const Item> items)
{
    m_selection->setItems(items);
    m_typed->forget();
    showSelection();
    if (isOpen())
        m_dropdown->open();
}

void Wx::ComboBox::selectId(int id, bool notify)
{
    selectIndex(m_selection->findId(id), notify);
}

void Wx::ComboBox::selectIndex(int index, bool notify)
{
    m_selection->setIndex(index);
    showSelection();
    if (notify)
        m_selection->notify();
}

Optional<int> Wx::ComboBox::getSelectedId() const
{
    const Item* const item = m_selection->selected();
    return item != nullptr ? Optional<int>(item->id) : Optional<int>();
}

Optional<int> Wx::ComboBox::getSelectedIndex() const
{
    return m_selection->selected() != nullptr ? Optional<int>(m_selection->index()) : Optional<int>();
}

int Wx::ComboBox::getCount() const
{
    return m_selection->count();
}

bool Wx::ComboBox::isInside(wxPoint screenPoint) const
{
    return Detail::screenRect(*this).Contains(screenPoint) ||
           (isOpen() && m_dropdown->GetScreenRect().Contains(screenPoint));
}

bool Wx::ComboBox::isOpen() const
{
    return m_dropdown && m_dropdown->IsShown();
}

void Wx::ComboBox::setOpen(bool open)
{
    if (!m_dropdown || open == isOpen())
        return;
    m_dropdown->markSelected();
    if (!open)
        m_dropdown->Hide();
    else if (IsEnabled())
        m_dropdown->open();
}

bool Wx::ComboBox::Enable(bool enable)
{
    const wxWeakRef<ComboBox> self(this);
    if (!enable)
        setOpen(false);
    // A handler that hears of the hiding may have destroyed the box.
    if (!self)
        return true;
    const bool changed = OskaBorder::Enable(enable);
    Refresh();
    return changed;
}

bool Wx::ComboBox::Reparent(wxWindowBase* newParent)
{
    const bool changed = OskaBorder::Reparent(newParent);
    m_selection->setEventTarget(GetParent()->GetEventHandler());
    return changed;
}

void Wx::ComboBox::markSelection()
{
    Refresh();
    updateAccessible(*this);
    if (m_dropdown)
        m_dropdown->markSelected();
}

void Wx::ComboBox::showSelection()
{
    markSelection();
    if (isOpen())
        m_dropdown->showSelected();
}

void Wx::ComboBox::selectByUser(int index)
{
    const bool changes = index != m_selection->index();
    m_selection->setIndex(index);
    showSelection();
    if (changes)
        m_selection->notify();
}

void Wx::ComboBox::selectByWheel(int rotation)
{
    if (rotation != 0)
        selectByUser(m_selection->indexAfter(rotation < 0 ? 1 : -1));
}

void Wx::ComboBox::onClicked(wxMouseEvent& /*event*/)
{
    if (!IsEnabled())
        return;
    const wxWeakRef<ComboBox> self(this);
    // The list leaves the focus with the box, which receives the keys for the list.
    if (!HasFocus())
        SetFocus();
    if (self)
        setOpen(!isOpen());
    if (self)
        Refresh();
}

void Wx::ComboBox::onWheel(wxMouseEvent& event)
{
    if (!IsEnabled() || event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL) {
        event.Skip();
        return;
    }
    // Windows sends the wheel to the window in focus, wherever the mouse is.
    const wxPoint mouse = ClientToScreen(event.GetPosition());
    if (isOpen() && m_dropdown->GetScreenRect().Contains(mouse))
        m_dropdown->turnWheel(event);
    else
        selectByWheel(event.GetWheelRotation());
}

void Wx::ComboBox::onFocused(wxFocusEvent& event)
{
    Refresh();
    event.Skip();
}

void Wx::ComboBox::onFocusLost(wxFocusEvent& event)
{
    Refresh();
    event.Skip();
    if (!isOpen())
        return;
    // A window manager may deactivate the frame for a moment while the list appears.
    if (event.GetWindow() == nullptr)
        m_focusTimer.StartOnce(FOCUS_TIME);
    // A handler that hears of the hiding may destroy the box, which wxWidgets still needs for this event.
    else if (!isInside(wxGetMousePosition()))
        CallAfter([this] { setOpen(false); });
}

void Wx::ComboBox::onFocusStillLost(wxTimerEvent& /*event*/)
{
    if (!HasFocus())
        setOpen(false);
}

// This event comes before the accelerators of a menu and before the Tab key of wxWidgets.
void Wx::ComboBox::onKey(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (event.ControlDown()) {
        event.Skip();
        return;
    }
    // Keys that do not change the selection leave a list where the user has scrolled it.
    markSelection();
    if (selectByKey(key) || openOrCloseByKey(event))
        return;
    if (key == WXK_TAB && !event.AltDown())
        leave(event.ShiftDown());
    else
        event.Skip();
}

bool Wx::ComboBox::selectByKey(int key)
{
    const int count = m_selection->count();
    if (key == WXK_HOME || key == WXK_NUMPAD_HOME)
        selectByUser(count > 0 ? 0 : m_selection->index());
    else if (key == WXK_END || key == WXK_NUMPAD_END)
        selectByUser(count > 0 ? count - 1 : m_selection->index());
    else if (stepsOf(key) != 0)
        selectByUser(m_selection->indexAfter(stepsOf(key)));
    else
        return false;
    return true;
}

bool Wx::ComboBox::openOrCloseByKey(const wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (event.HasAnyModifiers())
        return false;
    const bool isEither = key == WXK_F4 || (key == WXK_SPACE && !m_typed->isBeingTyped());
    const bool isEnd = key == WXK_ESCAPE || key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (!isEither && !(isEnd && isOpen()))
        return false;
    setOpen(!isOpen());
    return true;
}

void Wx::ComboBox::leave(bool backward)
{
    const wxWeakRef<ComboBox> self(this);
    setOpen(false);
    if (self)
        moveFocus(this, backward ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
}

void Wx::ComboBox::onCharacter(wxKeyEvent& event)
{
    const wxChar character = event.GetUnicodeKey();
    const bool isText = character > WXK_SPACE || (character == WXK_SPACE && m_typed->isBeingTyped());
    if (!isText || character == WXK_DELETE || event.HasModifiers()) {
        event.Skip();
        return;
    }
    const int found = m_typed->find(character, m_selection->items(), m_selection->index());
    if (found >= 0)
        selectByUser(found);
}

void Wx::ComboBox::onBoxPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, {{0, 0}, toPixel(dc.GetSize())}, face());
}

Wx::ComboBox::Face Wx::ComboBox::face() const
{
    Face face{.border = borderState(),
              .arrow = m_arrow,
              .text = {},
              .font = {},
              .textColour = IsEnabled() ? GetForegroundColour() : toWxColour(DISABLED_TEXT)};
    if (HasFocus() || isOpen())
        face.border.set(OskaBorderState::HOVERED);
    if (const Item* const item = m_selection->selected()) {
        face.text = toWxString(item->text);
        face.font = setupStaticTextFont(GetFont(), item->flags);
    }
    return face;
}

void Wx::ComboBox::draw(wxDC& dc, const Bucket& rect, const Face& face)
{
    OskaBorder::draw(dc, rect, face.border);
    const wxSize arrow = screenSize(face.arrow);
    const int arrowX = rect.max.x - arrow.x - EDGE;
    const int inner = rect.height() - 2 * EDGE;
    if (face.arrow.IsOk()) {
        const ScopedClippingRegion clipping(dc, {arrowX, rect.min.y + EDGE, arrow.x, inner});
        drawSharp(dc, face.arrow, {arrowX, rect.min.y + (rect.height() - arrow.y) / 2}, true);
    }
    const int textWidth = rect.width() - arrow.x - 2 * EDGE;
    if (face.text.empty() || textWidth <= 0 || inner <= 0)
        return;
    const ScopedClippingRegion clipping(dc, {rect.min.x + EDGE, rect.min.y + EDGE, textWidth, inner});
    dc.SetFont(face.font);
    dc.SetTextForeground(face.textColour);
    const int textHeight = dc.GetTextExtent(face.text).y;
    dc.DrawText(face.text, rect.min.x + TEXT_X, rect.min.y + (inner - textHeight) / 2 + EDGE);
}

} // namespace Nolvex
