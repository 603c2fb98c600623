// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"

#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/AccessibleRecord.h"
#include "NolvexLibWx/platform/gtk/AccessibleItem.h"
#include "NolvexLibWx/platform/gtk/AtkVocabulary.h"
#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <gtk/gtk-a11y.h>

#include <algorithm>
#include <memory>
#include <string>

namespace Nolvex {

namespace {

// Each announced item is a message to every program that listens. Assistive technology asks for the items of
// a longer list when it needs them.
constexpr int MAX_ANNOUNCED_ITEMS = 1000;

struct Described
{
    Described(wxWindow& control, GtkWidget* widget) : record(control), items(widget, record) {}

    Wx::AccessibleRecord record;
    Platform::AccessibleItems items;
    // ATK hands out pointers to these texts.
    std::string name;
    std::string description;
    std::string actionName;
};

// Stored with the widget. A control creates only this small object in its constructor; the rest is created
// when it is first needed.
struct Hook
{
    wxWindow& control;
    GtkWidget* widget;
    Wx::AccessibleMaker maker = nullptr;
    bool isAsked = false; // whether the accessible object has been made
    std::unique_ptr<Described> described;

    Described& describe()
    {
        if (described == nullptr) {
            described = std::make_unique<Described>(control, widget);
            described->record.setMaker(maker);
        }
        return *described;
    }
};

AtkObjectClass* s_parentClass = nullptr;

GQuark hookKey()
{
    static const GQuark KEY = g_quark_from_static_string("nolvex-accessibility");
    return KEY;
}

GQuark askedKey()
{
    static const GQuark KEY = g_quark_from_static_string("nolvex-asked-for");
    return KEY;
}

Hook* hookOf(GtkWidget* widget)
{
    return static_cast<Hook*>(g_object_get_qdata(G_OBJECT(widget), hookKey()));
}

// Returns null if the widget is gone or has not been described.
Described* describedBy(gpointer accessible)
{
    GtkWidget* const widget = gtk_accessible_get_widget(GTK_ACCESSIBLE(accessible));
    Hook* const hook = widget != nullptr ? hookOf(widget) : nullptr;
    return hook != nullptr ? &hook->describe() : nullptr;
}

Wx::AccessibleControl* accountOf(gpointer accessible)
{
    Described* const described = describedBy(accessible);
    return described != nullptr ? described->record.account() : nullptr;
}

std::string utf8(const String& text)
{
    return Wx::toWxString(text).utf8_string();
}

AtkRole roleOf(AtkObject* accessible) noexcept
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    return account != nullptr ? Platform::atkRole(account->role()) : s_parentClass->get_role(accessible);
}

const gchar* nameOf(AtkObject* accessible) noexcept
{
    Described* const described = describedBy(accessible);
    if (described == nullptr)
        return s_parentClass->get_name(accessible);
    described->name = utf8(described->record.name());
    return described->name.c_str();
}

const gchar* descriptionOf(AtkObject* accessible) noexcept
{
    Described* const described = describedBy(accessible);
    const String text = described != nullptr ? described->record.description() : String();
    if (text.isEmpty())
        return s_parentClass->get_description(accessible);
    described->description = utf8(text);
    return described->description.c_str();
}

AtkStateSet* refStateSet(AtkObject* accessible) noexcept
{
    AtkStateSet* const states = s_parentClass->ref_state_set(accessible);
    const Wx::AccessibleControl* const account = accountOf(accessible);
    if (account == nullptr)
        return states;
    const Flags<Wx::AccessibleState> told = account->states();
    for (const Platform::AtkStatePair& pair : Platform::ATK_STATES) {
        if (told.has(pair.told))
            atk_state_set_add_state(states, pair.system);
    }
    if (account->itemCount() > MAX_ANNOUNCED_ITEMS)
        atk_state_set_add_state(states, ATK_STATE_MANAGES_DESCENDANTS);
    // A widget of GTK can have the focus even if the control leaves it to the mouse or to a child.
    if (!Wx::isTabStop(*describedBy(accessible)->record.control()))
        atk_state_set_remove_state(states, ATK_STATE_FOCUSABLE);
    return states;
}

gint countChildren(AtkObject* accessible) noexcept
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    const int items = account != nullptr ? account->itemCount() : 0;
    return items > 0 ? items : s_parentClass->get_n_children(accessible);
}

AtkObject* refChild(AtkObject* accessible, gint index) noexcept
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    const int items = account != nullptr ? account->itemCount() : 0;
    if (items == 0)
        return s_parentClass->ref_child(accessible, index);
    if (index < 0 || index >= items)
        return nullptr;
    return ATK_OBJECT(g_object_ref(describedBy(accessible)->items.item(index)));
}

// GTK makes the object when it is first asked for, which may be before the control has been described.
void initialize(AtkObject* accessible, gpointer widget) noexcept
{
    s_parentClass->initialize(accessible, widget);
    Hook* const hook = hookOf(GTK_WIDGET(widget));
    if (hook == nullptr) {
        g_object_set_qdata(G_OBJECT(widget), askedKey(), widget);
        return;
    }
    hook->isAsked = true;
    hook->describe().record.markAnnounced();
}

gint countActions(AtkAction* accessible) noexcept
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    return account != nullptr ? static_cast<gint>(account->actions().size()) : 0;
}

const gchar* actionName(AtkAction* accessible, gint index) noexcept
{
    if (index < 0 || index >= countActions(accessible))
        return nullptr;
    Described* const described = describedBy(accessible);
    described->actionName = utf8(described->record.account()->actions()[static_cast<std::size_t>(index)]);
    return described->actionName.c_str();
}

gboolean doAction(AtkAction* accessible, gint index) noexcept
{
    Described* const described = describedBy(accessible);
    return described != nullptr && described->record.doAction(index) ? TRUE : FALSE;
}

Optional<Wx::AccessibleValue> valueOf(gpointer accessible)
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    return account != nullptr ? account->value() : Optional<Wx::AccessibleValue>();
}

void getValueAndText(AtkValue* accessible, gdouble* value, gchar** text) noexcept
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    const Optional<Wx::AccessibleValue> told = valueOf(accessible);
    if (value != nullptr)
        *value = told ? told->current : 0;
    if (text == nullptr)
        return;
    const String shown = told ? told->text : account != nullptr ? account->valueText() : String();
    *text = shown.isEmpty() ? nullptr : g_strdup(utf8(shown).c_str());
}

AtkRange* getRange(AtkValue* accessible) noexcept
{
    // The bridge to the accessibility bus uses the range without checking for null.
    const Wx::AccessibleValue told = valueOf(accessible).value_or(Wx::AccessibleValue{});
    return atk_range_new(told.minimum, told.maximum, nullptr);
}

gdouble getIncrement(AtkValue* accessible) noexcept
{
    const Optional<Wx::AccessibleValue> told = valueOf(accessible);
    return told ? told->step : 0;
}

void setValue(AtkValue* accessible, const gdouble value) noexcept
{
    if (Described* const described = describedBy(accessible))
        described->record.setValue(value);
}

Optional<int> selectedItemOf(gpointer accessible)
{
    const Wx::AccessibleControl* const account = accountOf(accessible);
    return account != nullptr ? account->selectedItem() : Optional<int>();
}

gboolean addSelection(AtkSelection* accessible, gint index) noexcept
{
    Described* const described = describedBy(accessible);
    return described != nullptr && described->record.selectItem(index) ? TRUE : FALSE;
}

gint countSelected(AtkSelection* accessible) noexcept
{
    return selectedItemOf(accessible) ? 1 : 0;
}

AtkObject* refSelected(AtkSelection* accessible, gint index) noexcept
{
    const Optional<int> selected = selectedItemOf(accessible);
    return selected && index == 0 ? refChild(ATK_OBJECT(accessible), *selected) : nullptr;
}

gboolean isChildSelected(AtkSelection* accessible, gint index) noexcept
{
    return selectedItemOf(accessible) == Optional<int>(index) ? TRUE : FALSE;
}

void initClass(gpointer accessibleClass, gpointer /*data*/) noexcept
{
    s_parentClass = ATK_OBJECT_CLASS(g_type_class_peek_parent(accessibleClass));
    AtkObjectClass* const accessible = ATK_OBJECT_CLASS(accessibleClass);
    accessible->initialize = initialize;
    accessible->get_role = roleOf;
    accessible->get_name = nameOf;
    accessible->get_description = descriptionOf;
    accessible->ref_state_set = refStateSet;
    accessible->get_n_children = countChildren;
    accessible->ref_child = refChild;
}

void initAction(gpointer interface, gpointer /*data*/) noexcept
{
    auto* const action = static_cast<AtkActionIface*>(interface);
    action->get_n_actions = countActions;
    action->get_name = actionName;
    action->do_action = doAction;
}

void initValue(gpointer interface, gpointer /*data*/) noexcept
{
    auto* const value = static_cast<AtkValueIface*>(interface);
    value->get_value_and_text = getValueAndText;
    value->get_range = getRange;
    value->get_increment = getIncrement;
    value->set_value = setValue;
}

void initSelection(gpointer interface, gpointer /*data*/) noexcept
{
    auto* const selection = static_cast<AtkSelectionIface*>(interface);
    selection->add_selection = addSelection;
    selection->get_selection_count = countSelected;
    selection->ref_selection = refSelected;
    selection->is_child_selected = isChildSelected;
}

// GTK chooses the type by the class of the widget, and all windows of wxWidgets are of one class. So the type
// has every interface that any control needs, and answers for other windows as its parent does.
GType registerType()
{
    const GType type = g_type_register_static_simple(GTK_TYPE_CONTAINER_ACCESSIBLE, "NolvexControlAccessible",
                                                     sizeof(GtkContainerAccessibleClass), initClass,
                                                     sizeof(GtkContainerAccessible), nullptr, {});
    const GInterfaceInfo action{initAction, nullptr, nullptr};
    g_type_add_interface_static(type, ATK_TYPE_ACTION, &action);
    const GInterfaceInfo value{initValue, nullptr, nullptr};
    g_type_add_interface_static(type, ATK_TYPE_VALUE, &value);
    const GInterfaceInfo selection{initSelection, nullptr, nullptr};
    g_type_add_interface_static(type, ATK_TYPE_SELECTION, &selection);
    return type;
}

// Returns the native widget that gets the focus. In a window with scroll bars, that is the scrolled widget.
GtkWidget* widgetOf(const wxWindow& window)
{
    return window.m_wxwindow != nullptr ? window.m_wxwindow : Platform::textWidget(window);
}

// Native widgets, such as GtkEntry, have accessible objects of their own.
bool isOwnKind(GtkWidget* widget)
{
    static GtkWidgetClass* prepared = nullptr;
    if (GTK_WIDGET_GET_CLASS(widget) == prepared)
        return true;
    if (!GTK_IS_FIXED(widget))
        return false;
    prepared = GTK_WIDGET_GET_CLASS(widget);
    gtk_widget_class_set_accessible_type(prepared, registerType());
    return true;
}

Hook& hookFor(wxWindow& control, GtkWidget* widget)
{
    Hook* hook = hookOf(widget);
    if (hook == nullptr) {
        hook = new Hook{control, widget, nullptr, false, nullptr};
        hook->isAsked = g_object_get_qdata(G_OBJECT(widget), askedKey()) != nullptr;
        g_object_set_qdata_full(G_OBJECT(widget), hookKey(), hook,
                                [](gpointer data) { delete static_cast<Hook*>(data); });
    }
    return *hook;
}

void announceItems(AtkObject* accessible, Described& described, const Wx::AccessibleRecord::Changes& changes)
{
    for (int i = std::min(changes.itemsBefore, MAX_ANNOUNCED_ITEMS) - 1; i >= changes.items; --i)
        g_signal_emit_by_name(accessible, "children-changed::remove", i, described.items.item(i), nullptr);
    described.items.update(changes.items);
    for (int i = changes.itemsBefore; i < std::min(changes.items, MAX_ANNOUNCED_ITEMS); ++i)
        g_signal_emit_by_name(accessible, "children-changed::add", i, described.items.item(i), nullptr);
    if (changes.selection) {
        described.items.updateSelection();
        g_signal_emit_by_name(accessible, "selection-changed");
    }
}

void announce(AtkObject* accessible, Described& described)
{
    const Wx::AccessibleRecord::Changes changes = described.record.takeChanges();
    if (changes.name)
        g_object_notify(G_OBJECT(accessible), "accessible-name");
    if (changes.description)
        g_object_notify(G_OBJECT(accessible), "accessible-description");
    if (changes.value)
        g_object_notify(G_OBJECT(accessible), "accessible-value");
    const Wx::AccessibleControl* const account = described.record.account();
    const Flags<Wx::AccessibleState> states =
        account != nullptr ? account->states() : Flags<Wx::AccessibleState>();
    for (const Platform::AtkStatePair& pair : Platform::ATK_STATES) {
        if (changes.states.has(pair.told))
            atk_object_notify_state_change(accessible, pair.system, states.has(pair.told) ? TRUE : FALSE);
    }
    announceItems(accessible, described, changes);
}

} // namespace

void Wx::describeControl(wxWindow& control, AccessibleMaker maker)
{
    GtkWidget* const widget = widgetOf(control);
    if (!isOwnKind(widget))
        return;
    Hook& hook = hookFor(control, widget);
    hook.maker = maker;
    if (hook.described != nullptr)
        hook.described->record.setMaker(maker);
    if (!hook.isAsked)
        return;
    hook.describe().record.markAnnounced();
    AtkObject* const accessible = gtk_widget_get_accessible(widget);
    g_object_notify(G_OBJECT(accessible), "accessible-role");
    g_object_notify(G_OBJECT(accessible), "accessible-name");
}

void Wx::updateAccessible(wxWindow& control)
{
    GtkWidget* const widget = widgetOf(control);
    Hook* const hook = hookOf(widget);
    // Before assistive technology has asked for the accessible object, it holds no data that could be
    // outdated.
    if (hook != nullptr && hook->isAsked)
        announce(gtk_widget_get_accessible(widget), hook->describe());
}

void Wx::setAccessibleName(wxWindow& window, const String& name)
{
    GtkWidget* const widget = widgetOf(window);
    if (!isOwnKind(widget)) {
        atk_object_set_name(gtk_widget_get_accessible(widget), utf8(name).c_str());
        return;
    }
    hookFor(window, widget).describe().record.setName(name);
    updateAccessible(window);
}

void Wx::setAccessibleDescription(wxWindow& window, const String& description)
{
    GtkWidget* const widget = widgetOf(window);
    if (!isOwnKind(widget)) {
        atk_object_set_description(gtk_widget_get_accessible(widget), utf8(description).c_str());
        return;
    }
    hookFor(window, widget).describe().record.setDescription(description);
    updateAccessible(window);
}

} // namespace Nolvex
