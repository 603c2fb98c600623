// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/Button.h"

#include <wx/timer.h>
#include <wx/weakref.h>

class WXDLLIMPEXP_FWD_CORE wxFrame;

namespace Nolvex::Wx {

/// A button with further choices. A short click makes the main choice; held down for 150 ms, the button opens
/// the others in a popup below, and the one that the mouse is released over is chosen. A triangle in the
/// corner marks it.
///
/// A choice of the popup calls its callback only; the main one is a click as of any Button. Every callback
/// may destroy the button.
class NOLVEXLIBWX_EXPORT DropdownButton : public Button
{
public:
    enum class Behavior : int
    {
        PUSH = 0,
        TOGGLE = 1, ///< the main choice is a toggle
        SWAP = 2,   ///< push; what is chosen in the popup changes places with the main choice
    };

    /// One id, one label and one callback, which may be empty, for each choice, the main one first. Arrays of
    /// different lengths, and no choice at all, are programming errors (StopException).
    DropdownButton(wxWindow* parent, const GuiSkin& skin, const Array<int>& ids,
                   const Array<wxString>& labels, const wxBitmap& bitmap, const wxBitmap& disabledBitmap,
                   const Array<Function<void()>>& callbacks, Behavior behavior, bool enabled);
    ~DropdownButton() override;

    /// The label at a place: 0 is the button's own, the popup's follow from 1. Another index is a programming
    /// error (StopException).
    void setText(int index, const String& text);

    /// Paints what the button shows, but for its background, over the size of the DC from its origin.
    void drawFace(wxDC& dc) const;

protected:
    void onMouseDown(wxMouseEvent& event) override;
    void onMouseUp(wxMouseEvent& event) override;
    void onCaptureLost(wxMouseCaptureLostEvent& event) override;
    void onButtonPaint(wxPaintEvent& event) override;

private:
    void createPopup(const Array<int>& ids, const Array<wxString>& labels,
                     const Array<Function<void()>>& callbacks);
    void onHeld(wxTimerEvent& event);
    void movePopup();
    void onPopupMoved(wxMoveEvent& event);
    void onMouseMoved(wxMouseEvent& event);
    void markHovered(Button* item);
    bool isOver(const Button& item, const wxMouseEvent& event) const;
    bool swapsOnSelect() const;
    void swapWithMain(Button& item);

    // Weak, as the ids by which they can be found and destroyed are the caller's.
    Array<wxWeakRef<Button>> m_items;
    wxFrame* m_popup = nullptr;
    wxTimer m_timer;
    int m_movesLeft = 0;
    bool m_swapOnSelect;
    wxWeakRef<wxWindow> m_hoveredItem;
};

} // namespace Nolvex::Wx
