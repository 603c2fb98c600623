// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ViewMouse.h"

#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/view/ImageView.h"
#include "apps/viewer/view/PixelSelection.h"

#include <wx/cursor.h>
#include <wx/weakref.h>

#include <cstdlib>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int DIVIDER_REACH = 4;  // design units to each side
constexpr int CLICK_MOVEMENT = 2; // design units

} // namespace

ViewMouse::ViewMouse(ImageView& view) : m_view(view), m_capture(&view)
{
    view.Bind(wxEVT_LEFT_DOWN, &ViewMouse::onPressed, this);
    view.Bind(wxEVT_MIDDLE_DOWN, &ViewMouse::onPressed, this);
    view.Bind(wxEVT_LEFT_UP, &ViewMouse::onReleased, this);
    view.Bind(wxEVT_MIDDLE_UP, &ViewMouse::onReleased, this);
    view.Bind(wxEVT_MOTION, &ViewMouse::onMoved, this);
    view.Bind(wxEVT_LEFT_DCLICK, &ViewMouse::onDoubleClicked, this);
    view.Bind(wxEVT_MOUSE_CAPTURE_LOST, &ViewMouse::onCaptureLost, this);
}

void ViewMouse::onPressed(wxMouseEvent& event)
{
    event.Skip(); // the window gets the focus
    if (m_drag != Drag::NONE)
        return;
    m_pressed = m_last = event.GetPosition();
    m_button = event.GetButton();
    m_moved = false;
    const bool isLeft = m_button == wxMOUSE_BTN_LEFT;
    if (isLeft && isAtDivider(m_pressed))
        m_drag = Drag::DIVIDER;
    else if (isLeft && event.ShiftDown() && m_view.picture())
        m_drag = Drag::SELECTION;
    else
        m_drag = Drag::PICTURE;
    m_selectionBefore = m_view.selection();
    m_capture.begin();
}

void ViewMouse::onMoved(wxMouseEvent& event)
{
    const wxWeakRef<wxWindow> view(&m_view);
    const wxPoint position = event.GetPosition();
    if (m_drag == Drag::NONE)
        showCursor(isAtDivider(position) ? wxCURSOR_SIZEWE : wxCURSOR_NONE);
    else if (isMovement(position))
        drag(position);
    event.Skip(view != nullptr);
}

// A hand moves the mouse a little when it clicks.
bool ViewMouse::isMovement(const wxPoint& position)
{
    const wxPoint moved = position - m_pressed;
    const int clickMovement = Wx::scaleByDpi(CLICK_MOVEMENT);
    m_moved = m_moved || std::abs(moved.x) > clickMovement || std::abs(moved.y) > clickMovement;
    return m_moved;
}

// A callback may have destroyed the view, and this object with it, when the function returns.
void ViewMouse::drag(const wxPoint& position)
{
    const wxPoint distance = position - std::exchange(m_last, position);
    switch (m_drag) {
    case Drag::PICTURE:
        showCursor(wxCURSOR_HAND);
        m_view.pan(distance);
        break;
    case Drag::SELECTION:
        if (m_view.picture()) {
            m_view.setSelection(rectOfCorners(m_view.nearPixel(m_pressed), m_view.nearPixel(position),
                                              m_view.picture()->size()));
        }
        break;
    case Drag::DIVIDER:
        m_view.moveDivider(static_cast<float>(position.x) /
                           static_cast<float>(std::max(m_view.GetClientSize().x, 1)));
        break;
    case Drag::NONE:
        break;
    }
}

void ViewMouse::onReleased(wxMouseEvent& event)
{
    if (m_drag == Drag::NONE || event.GetButton() != m_button) {
        event.Skip();
        return;
    }
    const wxWeakRef<wxWindow> view(&m_view);
    const Drag ended = m_drag;
    const bool wasClick = !m_moved && m_button == wxMOUSE_BTN_LEFT && ended != Drag::DIVIDER;
    const Optional<wxRect> selected = wasClick ? Optional<wxRect>() : m_view.selection();
    end();
    if (wasClick || ended == Drag::SELECTION) {
        m_view.setSelection(m_selectionBefore); // the change is then told
        m_view.select(selected);
    }
    event.Skip(view != nullptr);
}

void ViewMouse::onDoubleClicked(wxMouseEvent& event)
{
    const wxWeakRef<wxWindow> view(&m_view);
    if (!isAtDivider(event.GetPosition()))
        m_view.toggleFit(event.GetPosition());
    event.Skip(view != nullptr);
}

// A drag whose end has not been seen stays undone as far as the selection goes, which is told at its end.
void ViewMouse::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    if (m_drag == Drag::SELECTION)
        m_view.setSelection(m_selectionBefore);
    end();
}

void ViewMouse::end()
{
    m_drag = Drag::NONE;
    m_capture.end();
    showCursor(wxCURSOR_NONE);
}

bool ViewMouse::isAtDivider(const wxPoint& position) const
{
    const Optional<int> divider = m_view.dividerPosition();
    return divider && std::abs(position.x - *divider) <= Wx::scaleByDpi(DIVIDER_REACH);
}

// wxCURSOR_NONE stands for the usual cursor.
void ViewMouse::showCursor(wxStockCursor cursor)
{
    if (std::exchange(m_cursor, cursor) != cursor)
        m_view.SetCursor(cursor == wxCURSOR_NONE ? wxNullCursor : wxCursor(cursor));
}

} // namespace Nolvex::Viewer
