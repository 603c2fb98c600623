// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

namespace Nolvex::Tests {

/// Holds choices, which only assistive technology can make, and a list that is open or closed.
class FakeComboBox : public OskaBorder
{
public:
    FakeComboBox(wxWindow* parent, Array<String> items, Function<void(const String&)> onSelect);

    bool AcceptsFocusFromKeyboard() const override { return true; }

    const Array<String>& items() const { return m_items; }

    void setItems(Array<String> items);

    Optional<int> selectedItem() const { return m_selectedItem; }

    void select(int index);

    bool isOpen() const { return m_open; }

    void open(bool open);

private:
    Function<void(const String&)> m_onSelect;
    Array<String> m_items;
    Optional<int> m_selectedItem;
    bool m_open = false;
};

} // namespace Nolvex::Tests
