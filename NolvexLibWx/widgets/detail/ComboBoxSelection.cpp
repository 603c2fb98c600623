// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/ComboBoxSelection.h"

#include "NolvexLibWx/StringConversions.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Nolvex {

Wx::ComboBoxSelection::ComboBoxSelection(ComboBox& box, Function<void(int)> onSelect)
    : m_box(box), m_onSelect(std::move(onSelect)), m_eventTarget(box.GetParent()->GetEventHandler())
{}

Wx::ComboBoxSelection::~ComboBoxSelection() = default;

void Wx::ComboBoxSelection::setItems(ArrayView<const ComboBox::Item> items)
{
    const std::size_t capacity = m_items.capacity();
    if (items.size() > capacity) {
        // The old texts need not be moved to the new memory.
        m_items.clear();
        m_items.reserve(std::max(items.size(), capacity + capacity / 2));
    }
    m_items.assign(items.begin(), items.end());
    if (m_items.empty())
        m_index = -1;
    else if (m_index >= count())
        m_index = 0;
}

const Wx::ComboBox::Item* Wx::ComboBoxSelection::selected() const
{
    return m_index >= 0 && m_index < count() ? &m_items[static_cast<std::size_t>(m_index)] : nullptr;
}

int Wx::ComboBoxSelection::findId(int id) const
{
    const auto found = std::find_if(m_items.rbegin(), m_items.rend(),
                                    [id](const ComboBox::Item& item) { return item.id == id; });
    return static_cast<int>(m_items.rend() - found) - 1;
}

int Wx::ComboBoxSelection::indexAfter(int steps) const
{
    const bool hasNoneBefore = m_index < 0 && steps < 0;
    if (m_items.empty() || hasNoneBefore)
        return m_index;
    const std::int64_t wanted = std::int64_t{std::max(m_index, -1)} + steps;
    // From no item, every way down leads to the first one.
    const std::int64_t last = m_index < 0 ? 0 : count() - 1;
    return static_cast<int>(std::clamp<std::int64_t>(wanted, 0, last));
}

void Wx::ComboBoxSelection::notify() const
{
    const ComboBox::Item* const item = selected();
    if (item == nullptr)
        return;
    const int itemId = item->id;
    // The copies live until the end, also if a handler destroys the box.
    const Function<void(int)> onSelect = m_onSelect;
    const wxWeakRef<ComboBox> box(&m_box);
    wxCommandEvent event(wxEVT_COMBOBOX, m_box.GetId());
    event.SetEventObject(&m_box);
    event.SetInt(m_index);
    event.SetExtraLong(itemId);
    event.SetString(toWxString(item->text));
    if (m_eventTarget)
        m_eventTarget->ProcessEvent(event);
    if (box && onSelect)
        onSelect(itemId);
    if (box)
        box->Refresh();
}

} // namespace Nolvex
