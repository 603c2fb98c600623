// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/MouseCapture.h"

#include <wx/event.h>

namespace Nolvex::Viewer {

class ImageView;

/// Moves the picture of a view, the divider and the selection as the user drags the mouse, and changes the
/// scale after a double click. A member of the view.
class ViewMouse : private Noncopyable
{
public:
    explicit ViewMouse(ImageView& view);

private:
    enum class Drag
    {
        NONE,
        PICTURE,
        SELECTION,
        DIVIDER,
    };

    void onPressed(wxMouseEvent& event);
    void onReleased(wxMouseEvent& event);
    void onMoved(wxMouseEvent& event);
    void onDoubleClicked(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    bool isMovement(const wxPoint& position);
    bool isAtDivider(const wxPoint& position) const;
    void drag(const wxPoint& position);
    void end();
    void showCursor(wxStockCursor cursor);

    ImageView& m_view;
    Wx::MouseCapture m_capture;
    Drag m_drag = Drag::NONE;
    int m_button = 0;
    bool m_moved = false;
    wxPoint m_pressed;
    wxPoint m_last;
    wxStockCursor m_cursor = wxCURSOR_NONE;
    Optional<wxRect> m_selectionBefore;
};

} // namespace Nolvex::Viewer
