// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/DropdownFrame.h"

#include <wx/timer.h>
#include <wx/weakref.h>

namespace Nolvex::Wx {

/// A button with further choices. A short click makes the main choice. Holding the button for 150 ms opens a
/// frame below with the other choices, and releasing the mouse over one of them makes that choice. A triangle
/// in the corner marks the button.
///
/// The main choice is a click as of any Button; the other choices only call their callbacks. Every callback
/// may destroy the button. If a callback of the frame throws, the press ends and the frame closes.
class NOLVEXLIBWX_EXPORT DropdownButton : public Button
{
public:
    enum class Behavior : int
    {
        PUSH = 0,
        TOGGLE = 1, ///< the main choice is a toggle
        SWAP = 2,   ///< push; a choice made in the frame changes places with the main choice
    };

    /// All visible properties of a drop-down button except its background.
    struct Face
    {
        Button::Face button;
        RgbBytes accent; ///< the colour of the triangle while the button is enabled
    };

    /// Each choice has an id, a label and a callback, which may be empty; the main choice comes first. Arrays
    /// of different lengths, and no choice at all, are programming errors (StopException).
    DropdownButton(wxWindow* parent, const GuiSkin& skin, const Array<int>& ids,
                   const Array<wxString>& labels, const wxBitmap& bitmap, const wxBitmap& disabledBitmap,
                   const Array<Function<void()>>& callbacks, Behavior behavior, bool enabled);
    ~DropdownButton() override;

    /// Sets the label of a choice: index 0 is the main choice, and the choices of the frame follow from 1.
    /// Any other index is a programming error (StopException).
    void setText(int index, const String& text);

    /// Makes a choice as the user does, even if the button is disabled. The index is that of `setText`.
    void makeChoice(int index);

    /// Returns the present appearance of the button.
    Face face() const;

    /// Paints the face of a button that fills `rect`. The border is exact for a `rect` that starts at (0, 0),
    /// as explained at OskaBorder::draw.
    static void draw(wxDC& dc, const Bucket& rect, const Face& face);

protected:
    void onMouseDown(wxMouseEvent& event) override;
    void onMouseUp(wxMouseEvent& event) override;
    void onCaptureLost(wxMouseCaptureLostEvent& event) override;
    void onButtonPaint(wxPaintEvent& event) override;

private:
    class Account;

    Button* choice(int index) const;
    void createItems(const Array<int>& ids, const Array<wxString>& labels,
                     const Array<Function<void()>>& callbacks);
    void onHeld(wxTimerEvent& event);
    bool isOpen() const;
    void closeDropdown();
    void onMouseMoved(wxMouseEvent& event);
    void markHovered(Button* item);
    bool isOver(const Button& item, const wxMouseEvent& event) const;
    Button* choose(wxMouseEvent& event);
    void callBackSafely(const Button& item);
    bool swapsOnSelect() const;
    void swapWithMain(Button& item);

    // Weak, as the caller can find the frame and the items among the child windows and destroy them.
    Array<wxWeakRef<Button>> m_items;
    wxWeakRef<DropdownFrame> m_popup;
    wxTimer m_timer;
    bool m_swapOnSelect;
    wxWeakRef<wxWindow> m_hoveredItem;
};

} // namespace Nolvex::Wx
