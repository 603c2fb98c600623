// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/widgets/ComboBox.h"

#include <wx/event.h>
#include <wx/weakref.h>

namespace Nolvex::Wx {

/// The items of a combo box and the selected index, which the box and its list share. The box owns the
/// object.
class ComboBoxSelection : private Noncopyable
{
public:
    ComboBoxSelection(ComboBox& box, Function<void(int)> onSelect);
    ~ComboBoxSelection();

    ArrayView<const ComboBox::Item> items() const { return m_items; }

    int count() const { return static_cast<int>(m_items.size()); }

    /// Copies the items, and keeps the index within their range.
    void setItems(ArrayView<const ComboBox::Item> items);

    /// -1 means that no item is selected. Any other index without an item counts as that, too.
    int index() const { return m_index; }

    void setIndex(int index) { m_index = index; }

    /// Returns null if no item is selected.
    const ComboBox::Item* selected() const;

    /// Returns the index of the last item with that id, or -1.
    int findId(int id) const;

    /// Returns the index that lies `steps` items away from the selected one, or the nearest that has an item.
    /// Returns the present index if no item lies in that direction.
    int indexAfter(int steps) const;

    /// Sends the event to the parent of the box and calls the callback; either may destroy the box and with
    /// the box this object. Does nothing if no item is selected.
    void notify() const;

    /// Tells which parent receives the events.
    void setEventTarget(wxEvtHandler* target) { m_eventTarget = target; }

private:
    ComboBox& m_box;
    Array<ComboBox::Item> m_items;
    Function<void(int)> m_onSelect;
    wxWeakRef<wxEvtHandler> m_eventTarget;
    int m_index = -1;
};

} // namespace Nolvex::Wx
