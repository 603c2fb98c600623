// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/AccessibleItem.h"

#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/AccessibleRecord.h"

namespace Nolvex {

namespace {

constexpr const char* SELECT = "click";

// GLib allocates and clears these structures, so their members must not have constructors.
struct Item
{
    AtkObject base;
    GtkWidget* widget;            // null once the control or the item is gone
    Wx::AccessibleRecord* record; // null together with the widget
    char* name;                   // the text that was handed out last
    int index;
    gboolean isSelected;
};

struct ItemClass
{
    AtkObjectClass base;
};

AtkObjectClass* s_itemParentClass = nullptr;

Item* itemOf(gpointer accessible)
{
    return static_cast<Item*>(accessible);
}

Wx::AccessibleControl* accountOf(const Item& item)
{
    Wx::AccessibleControl* const account = item.record != nullptr ? item.record->account() : nullptr;
    return account != nullptr && item.index < account->itemCount() ? account : nullptr;
}

const gchar* itemName(AtkObject* accessible) noexcept
{
    Item& item = *itemOf(accessible);
    if (const Wx::AccessibleControl* account = accountOf(item)) {
        g_free(item.name);
        item.name = g_strdup(Wx::toWxString(account->itemName(item.index)).utf8_str());
    }
    return item.name;
}

AtkObject* itemParent(AtkObject* accessible) noexcept
{
    const Item& item = *itemOf(accessible);
    return item.widget != nullptr ? gtk_widget_get_accessible(item.widget) : nullptr;
}

gint itemIndex(AtkObject* accessible) noexcept
{
    return itemOf(accessible)->index;
}

// The choices of a button are made; only those of a list can be selected.
bool isSelectable(const Wx::AccessibleControl& account)
{
    return account.role() != Wx::AccessibleRole::DROPDOWN_BUTTON;
}

AtkRole itemRole(AtkObject* accessible) noexcept
{
    const Wx::AccessibleControl* const account = accountOf(*itemOf(accessible));
    return account == nullptr || isSelectable(*account) ? ATK_ROLE_LIST_ITEM : ATK_ROLE_MENU_ITEM;
}

bool isSelected(const Item& item)
{
    const Wx::AccessibleControl* const account = accountOf(item);
    return account != nullptr && account->selectedItem() == Optional<int>(item.index);
}

AtkStateSet* itemStates(AtkObject* accessible) noexcept
{
    AtkStateSet* const states = s_itemParentClass->ref_state_set(accessible);
    const Item& item = *itemOf(accessible);
    const Wx::AccessibleControl* const account = accountOf(item);
    if (account == nullptr) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    if (isSelectable(*account))
        atk_state_set_add_state(states, ATK_STATE_SELECTABLE);
    atk_state_set_add_state(states, ATK_STATE_VISIBLE);
    if (item.record->isOperable()) {
        atk_state_set_add_state(states, ATK_STATE_ENABLED);
        atk_state_set_add_state(states, ATK_STATE_SENSITIVE);
    }
    if (isSelected(item))
        atk_state_set_add_state(states, ATK_STATE_SELECTED);
    return states;
}

gint countItemActions(AtkAction* accessible) noexcept
{
    return accountOf(*itemOf(accessible)) != nullptr ? 1 : 0;
}

const gchar* itemActionName(AtkAction* accessible, gint index) noexcept
{
    return index == 0 && countItemActions(accessible) == 1 ? SELECT : nullptr;
}

gboolean doItemAction(AtkAction* accessible, gint index) noexcept
{
    const Item& item = *itemOf(accessible);
    const bool isPossible = index == 0 && accountOf(item) != nullptr;
    return isPossible && item.record->selectItem(item.index) ? TRUE : FALSE;
}

void finalizeItem(GObject* object) noexcept
{
    g_free(itemOf(object)->name);
    G_OBJECT_CLASS(s_itemParentClass)->finalize(object);
}

void initItemClass(gpointer itemClass, gpointer /*data*/) noexcept
{
    s_itemParentClass = ATK_OBJECT_CLASS(g_type_class_peek_parent(itemClass));
    G_OBJECT_CLASS(itemClass)->finalize = finalizeItem;
    AtkObjectClass* const accessible = ATK_OBJECT_CLASS(itemClass);
    accessible->get_name = itemName;
    accessible->get_parent = itemParent;
    accessible->get_index_in_parent = itemIndex;
    accessible->get_role = itemRole;
    accessible->ref_state_set = itemStates;
}

void initItemAction(gpointer interface, gpointer /*data*/) noexcept
{
    auto* const action = static_cast<AtkActionIface*>(interface);
    action->get_n_actions = countItemActions;
    action->get_name = itemActionName;
    action->do_action = doItemAction;
}

GType itemType()
{
    static const GType TYPE = [] {
        const GType type =
            g_type_register_static_simple(ATK_TYPE_OBJECT, "NolvexItemAccessible", sizeof(ItemClass),
                                          initItemClass, sizeof(Item), nullptr, {});
        const GInterfaceInfo action{initItemAction, nullptr, nullptr};
        g_type_add_interface_static(type, ATK_TYPE_ACTION, &action);
        return type;
    }();
    return TYPE;
}

AtkObject* makeItem(GtkWidget* widget, Wx::AccessibleRecord& record, int index)
{
    auto* const object = ATK_OBJECT(g_object_new(itemType(), nullptr));
    Item& item = *itemOf(object);
    item.widget = widget;
    item.record = &record;
    item.index = index;
    item.isSelected = isSelected(item) ? TRUE : FALSE;
    return object;
}

// Marks the object as defunct, because assistive technology may still hold a reference to it.
void abandonItem(AtkObject* accessible)
{
    if (accessible == nullptr)
        return;
    itemOf(accessible)->widget = nullptr;
    itemOf(accessible)->record = nullptr;
    atk_object_notify_state_change(accessible, ATK_STATE_DEFUNCT, TRUE);
    g_object_unref(accessible);
}

void announceName(AtkObject* accessible)
{
    Item& item = *itemOf(accessible);
    gchar* const before = g_strdup(item.name);
    // Without a name that was handed out before, there is no change to announce.
    if (before != nullptr && g_strcmp0(before, itemName(accessible)) != 0)
        g_object_notify(G_OBJECT(accessible), "accessible-name");
    g_free(before);
}

} // namespace

Platform::AccessibleItems::AccessibleItems(GtkWidget* widget, Wx::AccessibleRecord& record)
    : m_widget(widget), m_record(record)
{}

Platform::AccessibleItems::~AccessibleItems()
{
    for (AtkObject* accessible : m_items)
        abandonItem(accessible);
}

AtkObject* Platform::AccessibleItems::item(int index)
{
    const auto place = static_cast<std::size_t>(index);
    if (place >= m_items.size())
        m_items.resize(place + 1);
    if (m_items[place] == nullptr)
        m_items[place] = makeItem(m_widget, m_record, index);
    return m_items[place];
}

void Platform::AccessibleItems::update(int count)
{
    while (m_items.size() > static_cast<std::size_t>(count)) {
        abandonItem(m_items.back());
        m_items.pop_back();
    }
    for (AtkObject* accessible : m_items) {
        if (accessible != nullptr)
            announceName(accessible);
    }
}

void Platform::AccessibleItems::updateSelection()
{
    for (AtkObject* accessible : m_items) {
        if (accessible == nullptr)
            continue;
        Item& item = *itemOf(accessible);
        const gboolean now = isSelected(item) ? TRUE : FALSE;
        if (now != item.isSelected)
            atk_object_notify_state_change(accessible, ATK_STATE_SELECTED, now);
        item.isSelected = now;
    }
}

} // namespace Nolvex
