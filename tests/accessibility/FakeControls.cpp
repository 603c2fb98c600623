// SPDX-License-Identifier: MIT
#include "FakeControls.h"

#include "NolvexLibWx/Accessibility.h"

#include <utility>

namespace Nolvex {

namespace {

class ComboBoxAccount : public Wx::AccessibleControl
{
public:
    explicit ComboBoxAccount(Tests::FakeComboBox& box) : m_box(box) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::COMBO_BOX; }

    String name() const override { return L"Colour"; }

    Flags<Wx::AccessibleState> states() const override
    {
        Flags<Wx::AccessibleState> states = Wx::AccessibleState::EXPANDABLE;
        states.set(Wx::AccessibleState::EXPANDED, m_box.isOpen());
        return states;
    }

    Array<String> actions() const override { return {m_box.isOpen() ? L"close" : L"open"}; }

    void doAction(int /*index*/) override { m_box.open(!m_box.isOpen()); }

    int itemCount() const override { return static_cast<int>(m_box.items().size()); }

    String itemName(int index) const override { return m_box.items()[static_cast<std::size_t>(index)]; }

    Optional<int> selectedItem() const override { return m_box.selectedItem(); }

    void selectItem(int index) override { m_box.select(index); }

private:
    Tests::FakeComboBox& m_box;
};

} // namespace

Tests::FakeComboBox::FakeComboBox(wxWindow* parent, Array<String> items,
                                  Function<void(const String&)> onSelect)
    : OskaBorder(parent), m_onSelect(std::move(onSelect)), m_items(std::move(items))
{
    SetMinSize({80, 16});
    Wx::describeAs<ComboBoxAccount>(*this);
}

void Tests::FakeComboBox::setItems(Array<String> items)
{
    m_items = std::move(items);
    if (m_selectedItem && *m_selectedItem >= static_cast<int>(m_items.size()))
        m_selectedItem.reset();
    Wx::updateAccessible(*this);
}

void Tests::FakeComboBox::select(int index)
{
    m_selectedItem = index;
    Wx::updateAccessible(*this);
    m_onSelect(m_items[static_cast<std::size_t>(index)]);
}

void Tests::FakeComboBox::open(bool open)
{
    m_open = open;
    Wx::updateAccessible(*this);
}

} // namespace Nolvex
