// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/DropdownFrame.h"

#include <wx/timer.h>
#include <wx/weakref.h>

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
    /// A choice in the drop-down frame. The button itself hovers and chooses the items, which see nothing of
    /// the mouse while the button has captured it.
    class Item : public Button
    {
    public:
        using Button::Button;
        using Button::onMouseUp;

        void setHovered(bool hovered) { m_state.set(OskaBorderState::HOVERED, hovered); }

        Function<void()>& clickCallback() { return m_clickCallback; }

        void click() const
        {
            if (m_clickCallback)
                m_clickCallback();
        }
    };

    void createItems(const Array<int>& ids, const Array<wxString>& labels,
                     const Array<Function<void()>>& callbacks);
    void onHeld(wxTimerEvent& event);
    bool isOpen() const;
    void closeDropdown();
    void onMouseMoved(wxMouseEvent& event);
    void markHovered(Item* item);
    bool isOver(const Item& item, const wxMouseEvent& event) const;
    Item* choose(wxMouseEvent& event);
    void callBack(const Item& item);
    void abandonPress();
    bool swapsOnSelect() const;
    void swapWithMain(Item& item);

    // Weak, as the caller can find the frame and the items among the child windows and destroy them.
    Array<wxWeakRef<Item>> m_items;
    wxWeakRef<DropdownFrame> m_popup;
    wxTimer m_timer;
    bool m_swapOnSelect;
    wxWeakRef<wxWindow> m_hoveredItem;
};

} // namespace Nolvex::Wx
