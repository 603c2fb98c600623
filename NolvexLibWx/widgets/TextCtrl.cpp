// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextCtrl.h"

#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/platform/FocusTransfer.h"
#include "NolvexLibWx/platform/TextInput.h"
#include "NolvexLibWx/platform/TextLook.h"
#include "NolvexLibWx/platform/TextPositions.h"

#include <algorithm>

namespace Nolvex {

namespace {

// wxWidgets creates a rich control on Windows if the style has any of these bits.
constexpr long RICH_STYLES = wxTE_RICH | wxTE_RICH2 | wxTE_AUTO_URL;

// Returns the point of the client area that is nearest to `point`, which may lie outside.
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
    Platform::adaptTextLook(*this);
    Platform::removeLengthLimit(*this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { m_capture.end(); });
    Bind(wxEVT_CHAR_HOOK, &TextCtrl::onCharHook, this);
    bindGroupExit(*this);
}

// The destructor of wxTextCtrl thaws a frozen control by wxTextCtrl::DoThaw, which on GTK would release a
// text that DoFreeze of this class has not taken.
Wx::TextCtrl::~TextCtrl()
{
    while (IsFrozen())
        Thaw();
}

void Wx::TextCtrl::AppendText(const wxString& text)
{
    const ScopedWindowFreezer frozen(this);
    appendFrozen(text);
    // Painting is left to the next paint event, because painting after every line of a log would take many
    // times as long as appending the line.
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
    // On GTK, wxTextCtrl::SetInsertionPoint in a frozen control would scroll to the caret when it thaws.
    if (IsFrozen()) {
        const long place = pos == -1 ? GetLastPosition() : pos;
        SetSelection(place, place);
    } else {
        wxTextCtrl::SetInsertionPoint(pos);
    }
}

void Wx::TextCtrl::Update()
{
    // Painting a frozen control would leave a hole in its parent for a moment.
    if (!IsFrozen())
        wxTextCtrl::Update();
}

// These functions skip those of wxTextCtrl. On GTK, wxTextCtrl takes the text out of the view and puts it
// back, which loses the scroll position and takes the longer, the longer the text is.

void Wx::TextCtrl::DoFreeze()
{
    wxControl::DoFreeze(); // NOLINT(bugprone-parent-virtual-call)
}

void Wx::TextCtrl::DoThaw()
{
    wxControl::DoThaw(); // NOLINT(bugprone-parent-virtual-call)
}

void Wx::TextCtrl::DoCaptureMouse()
{
    Platform::prepareCapture(*this);
    wxTextCtrl::DoCaptureMouse();
    Platform::directCapture(*this);
}

// The background is painted together with the text. Erasing it first would make the control flicker.
void Wx::TextCtrl::onEraseBackground(wxEraseEvent& /*event*/) {}

void Wx::TextCtrl::onLeftDown(wxMouseEvent& event)
{
    m_selectionAnchor = Platform::textIndexAt(*this, event.GetPosition());
    SetSelection(m_selectionAnchor, m_selectionAnchor);
    // A handler of a focus event may have destroyed, hidden or disabled the control.
    if (!Platform::transferFocus(*this) || !IsShownOnScreen() || !IsEnabled())
        return;
    // GTK selects the whole text when a single-line control gets the focus, so the caret is placed again.
    SetSelection(m_selectionAnchor, m_selectionAnchor);
    m_selecting = true;
    m_capture.begin();
}

void Wx::TextCtrl::onLeftDoubleClick(wxMouseEvent& event)
{
    const Platform::TextLine line = Platform::textLineAt(*this, event.GetPosition());
    SetSelection(line.start, line.end);
}

void Wx::TextCtrl::onLeftUp(wxMouseEvent& /*event*/)
{
    m_selecting = false;
    m_capture.end();
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
    // The mouse button may have been released outside the control.
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

// This event comes before the accelerators of a menu and before the Tab key of wxWidgets, which does not know
// Focusable. On Windows the key-down event would come after both.
void Wx::TextCtrl::onCharHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_TAB && !event.ControlDown() && !event.AltDown())
        moveFocus(this, event.ShiftDown() ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
    else if (isCopyKey(event) && HasSelection())
        Copy();
    else
        event.Skip();
}

} // namespace Nolvex
