// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/Accessibility.h"

#include <wx/weakref.h>

#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>

namespace Nolvex {

namespace {

using Platform::AccessibleRole;

constexpr const char* DESCRIBED = "nolvex-described-control";
constexpr const char* SWITCHED_ON = "nolvex-switched-on";
constexpr const char* CLICK = "click";

// Kept with the accessible object, which others may hold on to for longer than the control lives.
struct Described
{
    wxWeakRef<wxWindow> control;
    AccessibleRole role;
};

// What is accessible of a window of the toolkit, with the states and the action of a control.
struct Accessible
{
    GtkContainerAccessible base;
};

struct AccessibleClass
{
    GtkContainerAccessibleClass base;
};

AtkObjectClass* parentClass = nullptr;

const Described* describedBy(gpointer accessible)
{
    return static_cast<const Described*>(g_object_get_data(G_OBJECT(accessible), DESCRIBED));
}

// Null when it is no control, or gone.
wxWindow* controlOf(gpointer accessible)
{
    const Described* described = describedBy(accessible);
    return described != nullptr ? described->control.get() : nullptr;
}

AtkStateType switchedState(AccessibleRole role)
{
    return role == AccessibleRole::DISCLOSURE ? ATK_STATE_EXPANDED : ATK_STATE_CHECKED;
}

// Roles that have none get one that changes nothing.
AtkStateType switchableState(AccessibleRole role)
{
    using enum AccessibleRole;
    switch (role) {
    case TOGGLE_BUTTON:
    case CHECK_BOX:
        return ATK_STATE_CHECKABLE;
    case DISCLOSURE:
        return ATK_STATE_EXPANDABLE;
    case DROPDOWN_BUTTON:
        return ATK_STATE_HAS_POPUP;
    default:
        return ATK_STATE_INVALID;
    }
}

bool isSwitchedOn(GtkWidget* widget)
{
    return g_object_get_data(G_OBJECT(widget), SWITCHED_ON) != nullptr;
}

void addSwitchedState(AtkStateSet* states, wxWindow& control, AccessibleRole role)
{
    if (const auto* checkBox = dynamic_cast<const wxCheckBoxBase*>(&control)) {
        if (checkBox->Get3StateValue() == wxCHK_CHECKED)
            atk_state_set_add_state(states, ATK_STATE_CHECKED);
        if (checkBox->Get3StateValue() == wxCHK_UNDETERMINED)
            atk_state_set_add_state(states, ATK_STATE_INDETERMINATE);
    } else if (isSwitchedOn(control.GetHandle())) {
        atk_state_set_add_state(states, switchedState(role));
    }
}

AtkStateSet* refStateSet(AtkObject* accessible) noexcept
{
    AtkStateSet* const states = parentClass->ref_state_set(accessible);
    if (wxWindow* const control = controlOf(accessible)) {
        const AccessibleRole role = describedBy(accessible)->role;
        if (switchableState(role) != ATK_STATE_INVALID)
            atk_state_set_add_state(states, switchableState(role));
        addSwitchedState(states, *control, role);
    }
    return states;
}

// A press and a release in the middle, as by the mouse. Either may destroy the control.
void click(const wxWeakRef<wxWindow>& control)
{
    for (const wxEventType type : {wxEventType(wxEVT_LEFT_DOWN), wxEventType(wxEVT_LEFT_UP)}) {
        if (!control || !Platform::canBeClicked(*control))
            return;
        const wxSize size = control->GetClientSize();
        wxMouseEvent event(type);
        event.SetEventObject(control);
        event.SetId(control->GetId());
        event.SetPosition(wxPoint(size.x / 2, size.y / 2));
        event.SetLeftDown(type == wxEVT_LEFT_DOWN);
        control->HandleWindowEvent(event);
    }
}

gint countActions(AtkAction* accessible) noexcept
{
    return controlOf(accessible) != nullptr && Platform::isClickable(describedBy(accessible)->role) ? 1 : 0;
}

const gchar* actionName(AtkAction* accessible, gint index) noexcept
{
    return index == 0 && countActions(accessible) == 1 ? CLICK : nullptr;
}

gboolean doAction(AtkAction* accessible, gint index) noexcept
{
    wxWindow* const control = controlOf(accessible);
    if (index != 0 || countActions(accessible) == 0 || !Platform::canBeClicked(*control))
        return FALSE;
    // Who asked is waiting for an answer, and a click may open a dialog.
    control->CallAfter([weak = wxWeakRef<wxWindow>(control)] { click(weak); });
    return TRUE;
}

void initClass(gpointer classOfType, gpointer /*data*/) noexcept
{
    parentClass = ATK_OBJECT_CLASS(g_type_class_peek_parent(classOfType));
    ATK_OBJECT_CLASS(classOfType)->ref_state_set = refStateSet;
}

void initAction(gpointer interface, gpointer /*data*/) noexcept
{
    auto* const action = static_cast<AtkActionIface*>(interface);
    action->get_n_actions = countActions;
    action->get_name = actionName;
    action->do_action = doAction;
}

GType registerType()
{
    const GType type =
        g_type_register_static_simple(GTK_TYPE_CONTAINER_ACCESSIBLE, "NolvexControlAccessible",
                                      sizeof(AccessibleClass), initClass, sizeof(Accessible), nullptr, {});
    const GInterfaceInfo action{initAction, nullptr, nullptr};
    g_type_add_interface_static(type, ATK_TYPE_ACTION, &action);
    return type;
}

GType accessibleType()
{
    static const GType TYPE = registerType();
    return TYPE;
}

void setName(GtkWidget* widget, const wxWindow& control)
{
    atk_object_set_name(gtk_widget_get_accessible(widget), Platform::accessibleName(control).utf8_str());
}

AtkRole systemRole(AccessibleRole role)
{
    using enum AccessibleRole;
    switch (role) {
    case TOGGLE_BUTTON:
    case DISCLOSURE:
        return ATK_ROLE_TOGGLE_BUTTON;
    case CHECK_BOX:
        return ATK_ROLE_CHECK_BOX;
    case LABEL:
        return ATK_ROLE_LABEL;
    case LINK:
        return ATK_ROLE_LINK;
    case GROUP:
        return ATK_ROLE_GROUPING;
    case PUSH_BUTTON:
    case DROPDOWN_BUTTON:
        break;
    }
    return ATK_ROLE_PUSH_BUTTON;
}

void describe(GtkWidget* widget, wxWindow& control, AccessibleRole role)
{
    AtkObject* const accessible = gtk_widget_get_accessible(widget);
    atk_object_set_role(accessible, systemRole(role));
    setName(widget, control);
    g_object_set_data_full(G_OBJECT(accessible), DESCRIBED, new Described{&control, role},
                           [](gpointer data) { delete static_cast<Described*>(data); });
}

template<AccessibleRole ROLE>
void onRealized(GtkWidget* widget, gpointer control) noexcept
{
    describe(widget, *static_cast<wxWindow*>(control), ROLE);
}

using Handler = void (*)(GtkWidget*, gpointer) noexcept;

// One a role: there is no room for it beside the control.
Handler handlerFor(AccessibleRole role)
{
    using enum AccessibleRole;
    switch (role) {
    case TOGGLE_BUTTON:
        return onRealized<TOGGLE_BUTTON>;
    case DROPDOWN_BUTTON:
        return onRealized<DROPDOWN_BUTTON>;
    case CHECK_BOX:
        return onRealized<CHECK_BOX>;
    case LABEL:
        return onRealized<LABEL>;
    case LINK:
        return onRealized<LINK>;
    case DISCLOSURE:
        return onRealized<DISCLOSURE>;
    case GROUP:
        return onRealized<GROUP>;
    case PUSH_BUTTON:
        break;
    }
    return onRealized<PUSH_BUTTON>;
}

} // namespace

void Platform::describeControl(wxWindow& control, AccessibleRole role)
{
    GtkWidget* const widget = control.GetHandle();
    // The kind of accessible object is common to all windows of the toolkit; those that are no control of
    // ours see no difference. What is wrapped in bars to scroll with has another kind.
    if (GTK_IS_FIXED(widget))
        gtk_widget_class_set_accessible_type(GTK_WIDGET_GET_CLASS(widget), accessibleType());
    const Handler handler = handlerFor(role);
    // Making the accessible object takes time, and nobody can ask for what is not there to see. The toolkit
    // takes the handlers that have the window for their data away with the window.
    if (gtk_widget_get_realized(widget))
        handler(widget, &control);
    else
        g_signal_connect(widget, "realize", G_CALLBACK(handler), &control);
}

void Platform::renameControl(wxWindow& control)
{
    if (gtk_widget_get_realized(control.GetHandle()))
        setName(control.GetHandle(), control);
}

void Platform::switchControl(wxWindow& control, bool on)
{
    GtkWidget* const widget = control.GetHandle();
    if (on == isSwitchedOn(widget))
        return;
    g_object_set_data(G_OBJECT(widget), SWITCHED_ON, GINT_TO_POINTER(on));
    if (!gtk_widget_get_realized(widget))
        return;
    AtkObject* const accessible = gtk_widget_get_accessible(widget);
    if (const Described* described = describedBy(accessible))
        atk_object_notify_state_change(accessible, switchedState(described->role), on);
}

} // namespace Nolvex
