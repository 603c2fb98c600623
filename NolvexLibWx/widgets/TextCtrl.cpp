// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextCtrl.h"

#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/platform/FocusTransfer.h"
#include "NolvexLibWx/platform/TextInput.h"
#include "NolvexLibWx/platform/TextPositions.h"

#include <algorithm>

namespace Nolvex {

namespace {

// With any of these styles wxWidgets makes a rich control on Windows.
constexpr long RICH_STYLES = wxTE_RICH | wxTE_RICH2 | wxTE_AUTO_URL;

// The point of the client area that is nearest to a point which may be outside.
wxPoint clampedTo(const wxSize& area, const wxPoint& point)
{
    return {std::max(std::min(point.x, area.x - 1), 0), std::max(std::min(point.y, area.y - 1), 0)};
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
    Platform::removeLengthLimit(*this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { m_capture.end(); });
}

Wx::TextCtrl::~TextCtrl() = default;

void Wx::TextCtrl::AppendText(const wxString& text)
{
    const ScopedWindowFreezer frozen(this);
    appendFrozen(text);
    // A frozen control leaves the painting to the next paint event: a paint for every line of a log would
    // take many times as long as the append.
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
    // On GTK wxWidgets would remember to scroll to the caret later.
    if (IsFrozen()) {
        const long place = pos == -1 ? GetLastPosition() : pos;
        SetSelection(place, place);
    } else {
        wxTextCtrl::SetInsertionPoint(pos);
    }
}

void Wx::TextCtrl::Update()
{
    // A frozen control that is painted would be a hole in its parent for a moment.
    if (!IsFrozen())
        wxTextCtrl::Update();
}

// These pass over the functions of wxTextCtrl, which on GTK takes the whole text from the view and gives it
// back: that loses the place the view was scrolled to and takes longer the longer the text is.

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

// The text is painted with its background, and appending does not flicker as long as nothing is erased.
void Wx::TextCtrl::onEraseBackground(wxEraseEvent& /*event*/) {}

void Wx::TextCtrl::onLeftDown(wxMouseEvent& event)
{
    m_selectionAnchor = Platform::textIndexAt(*this, event.GetPosition());
    SetSelection(m_selectionAnchor, m_selectionAnchor);
    // A handler of the focus may have destroyed, hidden or disabled the control.
    if (!Platform::transferFocus(*this) || !IsShownOnScreen() || !IsEnabled())
        return;
    // GTK selects the whole text of a single line that gets the focus.
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
    // The button of a drag may have been released elsewhere.
    if (!event.LeftIsDown())
        m_selecting = false;
}

void Wx::TextCtrl::onKeyDown(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if ((key == 'A' || key == 'a') && event.ControlDown())
        SetSelection(0, -1);
}

} // namespace Nolvex
