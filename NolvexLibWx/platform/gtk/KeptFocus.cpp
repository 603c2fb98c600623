// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/KeptFocus.h"

#include "NolvexLib/Stack.h"

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

struct Unreference
{
    void operator()(GtkWidget* widget) const { g_object_unref(widget); }
};

// A focused widget and, of a field, the selection, which GTK drops when it disables the field.
struct Place
{
    std::unique_ptr<GtkWidget, Unreference> widget;
    int selectionStart;
    int selectionEnd;
};

Place placeOf(GtkWidget* widget)
{
    Place place{std::unique_ptr<GtkWidget, Unreference>(GTK_WIDGET(g_object_ref(widget))), 0, 0};
    if (GTK_IS_EDITABLE(widget))
        gtk_editable_get_selection_bounds(GTK_EDITABLE(widget), &place.selectionStart, &place.selectionEnd);
    return place;
}

void goTo(const Place& place)
{
    gtk_widget_grab_focus(place.widget.get());
    if (GTK_IS_EDITABLE(place.widget.get()))
        gtk_editable_select_region(GTK_EDITABLE(place.widget.get()), place.selectionStart,
                                   place.selectionEnd);
}

} // namespace

// In each window of GTK, one widget has the focus while the window is active.
struct Platform::KeptFocus::Places
{
    Stack<Place> places;
};

Platform::KeptFocus::KeptFocus() : m_places(std::make_unique<Places>())
{
    GList* const windows = gtk_window_list_toplevels();
    for (const GList* item = windows; item != nullptr; item = item->next) {
        if (GtkWidget* const focus = gtk_window_get_focus(GTK_WINDOW(item->data)))
            m_places->places.push_back(placeOf(focus));
    }
    g_list_free(windows);
}

Platform::KeptFocus::~KeptFocus()
{
    for (const Place& place : m_places->places) {
        GtkWidget* const window = gtk_widget_get_toplevel(place.widget.get());
        if (gtk_widget_is_toplevel(window) && gtk_window_get_focus(GTK_WINDOW(window)) == nullptr)
            goTo(place);
    }
}

} // namespace Nolvex
