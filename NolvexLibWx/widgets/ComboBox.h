// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/widgets/Focusable.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <cstdint>
#include <memory>

namespace Nolvex::Wx {

class ComboBoxDropdown;
class ComboBoxSelection;
class TypedText;

/// A box that shows the selected one of several items, and whose list of items drops down when the box is
/// clicked. The list is the box's child window, a ComboBoxDropdown, which never takes the focus.
///
/// The mouse, the wheel and the keyboard select items, whether the list is open or not. Each selection by the
/// user, and each that the program asks to be notified of, is reported twice: the event handler of the parent
/// window is given a wxEVT_COMBOBOX with the index (GetInt) and the id of the item (GetExtraLong), then the
/// callback is called with the id. Either may destroy the box or replace the items; the callback is given the
/// id of the item that was selected, whatever the event's handler has done.
///
/// Keys: Up, Down, Home and End select the previous, next, first and last item, Page Up and Page Down move by
/// the 17 rows that the list shows at most, and typed characters select the next item that begins with them.
/// While no item is selected, Up and Page Up do nothing, and Down and Page Down select the first item. F4 and
/// Space open and close the list, Enter and Escape close the list. Tab moves the focus to the next Focusable.
class NOLVEXLIBWX_EXPORT ComboBox : public OskaBorder, public Focusable
{
public:
    struct Item
    {
        String text;
        std::int32_t id = 0; ///< for the program; several items may have the same
        Flags<TextFlag> flags;
    };

    /// Tells what has happened to the window of the list.
    enum class WindowEvent : int
    {
        CREATED = 0,   ///< in the constructor of the box
        DESTROYED = 1, ///< in the destructor of the box, which destroys the window next
    };

    /// All visible properties of a box except its background.
    struct Face
    {
        Flags<OskaBorderState> border;
        wxBitmap arrow;
        wxString text; ///< of the selected item
        wxFont font;
        wxColour textColour;
    };

    /// `width` is in design units. `onSelect` and `windowCallback` may be empty. `windowCallback` is given
    /// the window of the list, or null if the program has already destroyed that window.
    ComboBox(wxWindow* parent, int id, int width, const Function<void(int)>& onSelect,
             const Function<void(wxWindow*, WindowEvent)>& windowCallback, bool enabled);
    ~ComboBox() override;

    /// Replaces the items. A selected index beyond the last item becomes 0, and -1 if there are no items.
    /// Sends nothing.
    void setData(ArrayView<const Item> items);

    /// Selects the last item with that id, or no item if there is none, in which case nothing is sent.
    void selectId(int id, bool notify);

    /// Stores the index even if there is no such item. Only the selection of an item is notified of.
    void selectIndex(int index, bool notify);

    Optional<int> getSelectedId() const;
    Optional<int> getSelectedIndex() const;
    int getCount() const;

    /// Returns true if the point, in screen coordinates, is in the box or in its open list.
    bool isInside(wxPoint screenPoint) const;

    bool isOpen() const;

    /// Opens or closes the list. The list of a box that cannot be seen or used stays closed.
    void setOpen(bool open);

    /// Disabling the box closes the list.
    bool Enable(bool enable = true) override;

    bool AcceptsFocusFromKeyboard() const override { return true; }

    /// The new parent receives the events from then on.
    bool Reparent(wxWindowBase* newParent) override;

    /// Returns the present appearance of the box.
    Face face() const;

    /// Paints the face of a box that fills `rect`. The border is exact for a `rect` that starts at (0, 0), as
    /// explained at OskaBorder::draw.
    static void draw(wxDC& dc, const Bucket& rect, const Face& face);

private:
    friend class ComboBoxDropdown;
    class Account;

    void bindEvents();
    void onClicked(wxMouseEvent& event);
    void onBoxPaint(wxPaintEvent& event);
    void onWheel(wxMouseEvent& event);
    void onFocused(wxFocusEvent& event);
    void onFocusLost(wxFocusEvent& event);
    void onFocusStillLost(wxTimerEvent& event);
    void onKey(wxKeyEvent& event);
    void onCharacter(wxKeyEvent& event);
    bool selectByKey(int key);
    bool openOrCloseByKey(const wxKeyEvent& event);
    void leave(bool backward);
    void selectByUser(int index);
    void selectByWheel(int rotation);
    /// Repaints the face and marks the selected row of the list.
    void markSelection();

    /// Does the same, and scrolls an open list to the selected row.
    void showSelection();

    GuiSkin m_skin = GuiSkin::DEFAULT();
    wxBitmap m_arrow;
    wxBitmap m_pressedArrow; // for a box that shows a press, which this box does not do yet
    Function<void(wxWindow*, WindowEvent)> m_windowCallback;
    std::unique_ptr<ComboBoxSelection> m_selection;
    std::unique_ptr<TypedText> m_typed;
    wxTimer m_focusTimer{this};
    wxWeakRef<ComboBoxDropdown> m_dropdown; // a child window, which the program may have destroyed
};

} // namespace Nolvex::Wx
