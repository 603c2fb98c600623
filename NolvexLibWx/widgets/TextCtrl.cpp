// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextCtrl.h"

#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/platform/TextInput.h"
#include "NolvexLibWx/platform/TextPositions.h"

#include <algorithm>

namespace Nolvex {

namespace {

// With any of them the toolkit makes a rich control on Windows.
constexpr long RICH_STYLES = wxTE_RICH | wxTE_RICH2 | wxTE_AUTO_URL;

// Inside the client area, the nearest point to one that may be outside.
wxPoint clampedTo(const wxSize& area, const wxPoint& point)
{
    return {std::max(std::min(point.x, area.x - 1), 0), std::max(std::min(point.y, area.y - 1), 0)};
}

bool isCopyKey(const wxKeyEvent& event)
{
    return (event.GetKeyCode() == 'C' || event.GetKeyCode() == 'c') && event.GetModifiers() == wxMOD_CONTROL;
}

} // namespace

namespace Wx {

// clang-format off
wxBEGIN_EVENT_TABLE(TextCtrl, wxTextCtrl)
    EVT_ERASE_BACKGROUND(TextCtrl::onEraseBackground)
    EVT_LEFT_DOWN(TextCtrl::onLeftDown)
    EVT_LEFT_DCLICK(TextCtrl::onLeftDoubleClick)
    EVT_LEFT_UP(TextCtrl::onLeftUp)
    EVT_MOTION(TextCtrl::onMotion)
    EVT_ENTER_WINDOW(TextCtrl::onEnter)
    EVT_KEY_DOWN(TextCtrl::onKeyDown)
wxEND_EVENT_TABLE()
// clang-format on

} // namespace Wx

Wx::TextCtrl::TextCtrl(wxWindow* parent, int id, const wxString& value, const wxPoint& pos,
                       const wxSize& size, long style)
    : wxTextCtrl(parent, id, value, pos, size, style & ~RICH_STYLES)
{
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { releaseCapture(); });
    Bind(wxEVT_CHAR_HOOK, &TextCtrl::onCharHook, this);
    bindGroupExit(*this);
}

Wx::TextCtrl::~TextCtrl()
{
    releaseCapture();
}

void Wx::TextCtrl::AppendText(const wxString& text)
{
    {
        const ScopedWindowFreezer frozen(this);
        appendFrozen(text);
    }
    // Not before the freezer's end, until which nothing is painted.
    Update();
}

void Wx::TextCtrl::appendFrozen(const wxString& text)
{
    const long lastPosition = GetLastPosition();
    long from = 0;
    long to = 0;
    GetSelection(&from, &to);
    const Platform::TextView view = Platform::visiblePart(*this);
    wxTextCtrl::AppendText(text);

    const bool followsEnd = from == to && (!HasFocus() || to == lastPosition);
    if (followsEnd) {
        const long end = GetLastPosition();
        SetSelection(end, end);
        Platform::scrollToEnd(*this);
    } else {
        SetSelection(from, to);
        Platform::scrollBackTo(*this, view);
    }
}

void Wx::TextCtrl::ShowPosition(long pos)
{
    Platform::scrollToPosition(*this, pos);
}

void Wx::TextCtrl::SetInsertionPoint(long pos)
{
    // On GTK the toolkit would remember to scroll to the caret later.
    if (IsFrozen()) {
        const long place = pos == -1 ? GetLastPosition() : pos;
        SetSelection(place, place);
    } else {
        wxTextCtrl::SetInsertionPoint(pos);
    }
}

void Wx::TextCtrl::Update()
{
    // Painted now, a frozen control would be a hole in its parent for a moment.
    if (!IsFrozen())
        wxTextCtrl::Update();
}

// Not the text control's own: on GTK it takes the whole text from the view and gives it back, which loses the
// place the view was scrolled to and takes longer the longer the text is.

void Wx::TextCtrl::DoFreeze()
{
    wxControl::DoFreeze(); // NOLINT(bugprone-parent-virtual-call)
}

void Wx::TextCtrl::DoThaw()
{
    wxControl::DoThaw(); // NOLINT(bugprone-parent-virtual-call)
}

// Nothing to erase: the text is painted with its background, and appending does not flicker.
void Wx::TextCtrl::onEraseBackground(wxEraseEvent& /*event*/) {}

void Wx::TextCtrl::onLeftDown(wxMouseEvent& event)
{
    m_selectionAnchor = Platform::textIndexAt(*this, event.GetPosition());
    SetSelection(m_selectionAnchor, m_selectionAnchor);
    SetFocus();
    // A single line of GTK selects everything when it gets the focus.
    SetSelection(m_selectionAnchor, m_selectionAnchor);
    m_selecting = true;
    if (!HasCapture())
        Platform::captureMouse(*this);
}

void Wx::TextCtrl::onLeftDoubleClick(wxMouseEvent& event)
{
    const Platform::TextLine line = Platform::textLineAt(*this, event.GetPosition());
    SetSelection(line.start, line.end);
}

void Wx::TextCtrl::onLeftUp(wxMouseEvent& /*event*/)
{
    m_selecting = false;
    releaseCapture();
}

void Wx::TextCtrl::onMotion(wxMouseEvent& event)
{
    if (!m_selecting)
        return;
    const wxPoint point = clampedTo(GetClientSize(), event.GetPosition());
    SetSelection(m_selectionAnchor, Platform::textIndexAt(*this, point));
}

void Wx::TextCtrl::onEnter(wxMouseEvent& event)
{
    // The button of a drag may have been released elsewhere.
    if (!event.LeftIsDown())
        m_selecting = false;
}

void Wx::TextCtrl::onKeyDown(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if ((key == 'A' || key == 'a') && event.ControlDown())
        SetSelection(0, -1);
    else if (isCopyKey(event))
        Copy();
}

// The accelerators of a menu come before the key-down on Windows, and so does the Tab of wxWidgets, which
// knows nothing of Focusable. This event comes before both.
void Wx::TextCtrl::onCharHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_TAB && !event.ControlDown() && !event.AltDown())
        moveFocus(this, event.ShiftDown() ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
    else if (isCopyKey(event) && HasSelection())
        Copy();
    else
        event.Skip();
}

void Wx::TextCtrl::releaseCapture()
{
    if (HasCapture())
        ReleaseMouse();
}

} // namespace Nolvex
