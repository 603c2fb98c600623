// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ComboBoxDropdown.h"

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/TraceElapsedTime.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/widgets/ComboBoxCanvas.h"
#include "NolvexLibWx/widgets/detail/ComboBoxSelection.h"

#include <wx/eventfilter.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <algorithm>
#include <utility>

namespace Nolvex {

namespace {

constexpr int MAX_VISIBLE_ROWS = 17;

// Programs that read the log know the message by this place.
constexpr const char* TRACED_FILE = "widgets/ComboBox";
constexpr int TRACED_LINE = 284;
constexpr const char* TRACED_FUNCTION = "Nolvex::Wx::ComboBoxDropdown::ComboBoxDropdown";

// In design units.
constexpr int SCROLL_UNIT = 6;
constexpr int ROW_HEIGHT = 18;

int roundedUp(int value, int unit)
{
    return (value + unit - 1) / unit * unit;
}

} // namespace

/// Scrolls the canvas, and moves the slice of a long list when the canvas does not reach any further.
class Wx::ComboBoxDropdown::Scroller : public wxScrolledWindow
{
public:
    explicit Scroller(ComboBoxDropdown& dropdown) : m_dropdown(dropdown)
    {
        // The default constructor ran first so that Create asks the AcceptsFocus of this class.
        Create(&dropdown, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL);
    }

    bool AcceptsFocus() const override { return false; }

    bool AcceptsFocusRecursively() const override { return false; }

    void ScrollWindow(int dx, int dy, const wxRect* rect) override
    {
        // wxWidgets also calls this function before there is a canvas, without a distance.
        if (dy == 0 || m_dropdown.isSliceInView())
            wxScrolledWindow::ScrollWindow(dx, dy, rect);
        else
            m_dropdown.moveSlice();
    }

private:
    ComboBoxDropdown& m_dropdown;
};

/// Closes the list when the user clicks any window of the program but the list and its box. Many windows do
/// not take the focus when they are clicked.
class Wx::ComboBoxDropdown::ClickWatch : private wxEventFilter, private Noncopyable
{
public:
    explicit ClickWatch(ComboBoxDropdown& dropdown) : m_dropdown(dropdown) { wxEvtHandler::AddFilter(this); }

    ~ClickWatch() override { wxEvtHandler::RemoveFilter(this); }

private:
    int FilterEvent(wxEvent& event) override
    {
        const auto* const mouse = dynamic_cast<const wxMouseEvent*>(&event);
        if (mouse == nullptr || !(mouse->ButtonDown() || mouse->ButtonDClick()))
            return Event_Skip;
        const auto* const window = wxDynamicCast(event.GetEventObject(), wxWindow);
        // The list is hidden after the click, because a handler of wxEVT_SHOW may destroy the clicked window.
        if (window != nullptr && !m_dropdown.m_box.isInside(window->ClientToScreen(mouse->GetPosition())))
            m_dropdown.CallAfter([list = &m_dropdown] { list->Hide(); });
        return Event_Skip;
    }

    ComboBoxDropdown& m_dropdown;
};

Wx::ComboBoxDropdown::ComboBoxDropdown(ComboBox& box, ComboBoxSelection& selection, const GuiSkin& skin)
    // The stopwatch lives until the other constructor is done, and so measures the bases, too.
    : ComboBoxDropdown(
          box, selection, skin,
          Nolvex::Detail::TraceElapsedTime(Timer(1000), TRACED_FILE, TRACED_LINE, TRACED_FUNCTION))
{}

Wx::ComboBoxDropdown::ComboBoxDropdown(ComboBox& box, ComboBoxSelection& selection, const GuiSkin& skin,
                                       const Nolvex::Detail::TraceElapsedTime& /*trace*/)
    : DropdownFrame(&box, wxBORDER_SIMPLE, L"ComboBoxDropdown"),
      m_box(box),
      m_selection(selection),
      m_scrollUnit(scaleByDpi(SCROLL_UNIT)),
      m_rowHeight(roundedUp(scaleByDpi(ROW_HEIGHT), m_scrollUnit))
{
    SetBackgroundColour(toWxColour(skin.background));
    m_scroller = new Scroller(*this);
    m_scroller->SetBackgroundColour(toWxColour(skin.background));
    m_scroller->ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_DEFAULT);
    m_scroller->SetScrollRate(0, m_scrollUnit);
    m_scroller->SetSize(GetSize().x, Canvas::heightOf(MAX_VISIBLE_ROWS, m_rowHeight));
    m_canvas = new Canvas(m_scroller, *this, selection, skin, m_rowHeight);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    m_above = sizer->AddSpacer(0);
    sizer->Add(m_canvas, 0, wxEXPAND);
    m_below = sizer->AddSpacer(0);
    m_scroller->SetSizerAndFit(sizer);
    m_scroller->FitInside();
    Hide();
    SetMaxSize(wxSize(GetClientSize().x, -1));
    bindEvents(*this);
    bindEvents(*m_canvas);
}

Wx::ComboBoxDropdown::~ComboBoxDropdown() = default;

void Wx::ComboBoxDropdown::bindEvents(wxWindow& window)
{
    window.Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { turnWheel(event); });
    window.Bind(wxEVT_CHAR_HOOK, &ComboBoxDropdown::onKey, this);
    window.Bind(wxEVT_KEY_DOWN, &ComboBoxDropdown::onKeyDown, this);
    window.Bind(wxEVT_KILL_FOCUS, &ComboBoxDropdown::onFocusLost, this);
}

void Wx::ComboBoxDropdown::open()
{
    layOut();
    const wxWeakRef<ComboBoxDropdown> self(this);
    if (!IsShown())
        DropdownFrame::open();
    // A handler of wxEVT_SHOW may have destroyed the frame.
    if (self)
        showSelected();
}

bool Wx::ComboBoxDropdown::Show(bool show)
{
    const wxWeakRef<ComboBoxDropdown> self(this);
    const bool changed = DropdownFrame::Show(show);
    // A handler of wxEVT_SHOW may have destroyed the frame.
    if (!self || !changed)
        return changed;
    m_clicks = IsShown() ? std::make_unique<ClickWatch>(*this) : nullptr;
    updateAccessible(m_box);
    return true;
}

int Wx::ComboBoxDropdown::listHeight() const
{
    return Canvas::heightOf(m_selection.count(), m_rowHeight);
}

void Wx::ComboBoxDropdown::layOut()
{
    const int visibleRows = std::min(m_selection.count(), MAX_VISIBLE_ROWS);
    const int width = m_box.GetClientSize().x;
    // The limit of the constructor does not fit a box that is wider than a new frame.
    SetMaxSize(wxSize(width, -1));
    const int borders = GetSize().y - GetClientSize().y;
    SetSize(width, Canvas::heightOf(visibleRows, m_rowHeight) + borders);
    m_scroller->SetSize(GetClientSize());
    m_canvas->SetMinSize(wxSize(-1, std::min(listHeight(), Canvas::MAX_HEIGHT)));
    moveSlice();
    m_scroller->FitInside();
    m_canvas->Refresh();
}

int Wx::ComboBoxDropdown::viewTop() const
{
    return m_scroller->GetScrollPos(wxVERTICAL) * m_scrollUnit;
}

bool Wx::ComboBoxDropdown::isSliceInView() const
{
    const int viewBottom = std::min(viewTop() + m_scroller->GetClientSize().y, listHeight());
    return m_canvas->top() <= viewTop() && viewBottom <= m_canvas->top() + m_canvas->GetMinSize().y;
}

// The spacers keep the sizer as tall as the list, wherever the slice is.
void Wx::ComboBoxDropdown::moveSlice()
{
    const int height = m_canvas->GetMinSize().y;
    const wxSize view = m_scroller->GetClientSize();
    const int hidden = listHeight() - height;
    const int top = std::clamp(viewTop() - (height - view.y) / 2, 0, hidden);
    m_above->AssignSpacer(0, top);
    m_below->AssignSpacer(0, hidden - top);
    m_canvas->setTop(top);
    m_canvas->SetSize(0, top - viewTop(), view.x, height);
}

void Wx::ComboBoxDropdown::markSelected()
{
    m_canvas->setMarkedRow(m_selection.index());
}

void Wx::ComboBoxDropdown::showSelected()
{
    // With nothing selected, the list shows its start.
    const int selected = m_selection.selected() == nullptr ? 0 : m_selection.index();
    const int height = m_scroller->GetSize().y;
    const int first = m_scrollUnit * (m_scroller->GetViewStart().y + 1) / m_rowHeight;
    const int rows = height / m_rowHeight;
    if (selected < first)
        m_scroller->Scroll(-1, selected * m_rowHeight / m_scrollUnit);
    else if (selected >= first + rows)
        m_scroller->Scroll(-1, (Canvas::heightOf(selected - rows + 1, m_rowHeight) - height % m_rowHeight) /
                                   m_scrollUnit);
}

void Wx::ComboBoxDropdown::turnWheel(wxMouseEvent& event)
{
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL) {
        event.Skip();
        return;
    }
    m_selection.setIndex(m_canvas->markedRow());
    m_box.showSelection();
    m_box.selectByWheel(event.GetWheelRotation());
}

void Wx::ComboBoxDropdown::choose(int row)
{
    if (row < 0 || row >= m_selection.count())
        return;
    m_selection.setIndex(row);
    m_box.showSelection();
    const wxWeakRef<ComboBoxDropdown> self(this);
    try {
        m_selection.notify();
    } catch (...) {
        if (self)
            Hide();
        throw;
    }
    if (self)
        Hide();
}

// The system gives the focus to the box and never to the list, but a program may send the list's events.
void Wx::ComboBoxDropdown::onKeyDown(wxKeyEvent& event)
{
    m_tabPressed = event.GetKeyCode() == WXK_TAB;
    event.Skip();
}

void Wx::ComboBoxDropdown::onKey(wxKeyEvent& event)
{
    if (std::exchange(m_tabPressed, false))
        m_box.leave(event.ShiftDown());
    else
        m_box.onKey(event);
}

void Wx::ComboBoxDropdown::onFocusLost(wxFocusEvent& event)
{
    event.Skip();
    if (event.GetWindow() != nullptr && m_box.isInside(wxGetMousePosition()))
        return;
    const wxWeakRef<ComboBoxDropdown> self(this);
    Hide();
    // No further handlers can be looked for in a frame that a handler of wxEVT_SHOW has destroyed.
    if (!self)
        event.Skip(false);
}

} // namespace Nolvex
