// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/HoverWatch.h"

#include "NolvexLibWx/detail/ScreenPlaces.h"

#include <wx/event.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

bool isUnderMouse(GtkWidget* widget)
{
    GdkDevice* const pointer =
        gdk_seat_get_pointer(gdk_display_get_default_seat(gtk_widget_get_display(widget)));
    GdkWindow* const window = gdk_device_get_window_at_position(pointer, nullptr, nullptr);
    gpointer owner = nullptr;
    if (window != nullptr)
        gdk_window_get_user_data(window, &owner);
    return owner == widget;
}

void send(wxWindow& window, wxEventType type)
{
    wxMouseEvent event(type);
    event.SetId(window.GetId());
    event.SetEventObject(&window);
    const wxMouseState mouse = wxGetMouseState();
    event.SetState(mouse);
    event.SetPosition(Wx::Detail::screenToClient(window, mouse.GetPosition()));
    window.HandleWindowEvent(event);
}

// wxWidgets drops the crossing events that GTK makes when the sensitivity changes.
void onStateChanged(GtkWidget* widget, GtkStateFlags previous, gpointer data) noexcept
{
    const bool enabled = gtk_widget_is_sensitive(widget) != FALSE;
    const bool wasEnabled = (previous & GTK_STATE_FLAG_INSENSITIVE) == 0;
    if (enabled != wasEnabled && isUnderMouse(widget))
        send(*static_cast<wxWindow*>(data), enabled ? wxEVT_ENTER_WINDOW : wxEVT_LEAVE_WINDOW);
}

// A user who clicks and moves the mouse away at once has left the window before the program has handled the
// release and freed the mouse. GTK tells of that when the mouse is freed, and wxWidgets drops the event.
gboolean onLeft(GtkWidget* widget, GdkEventCrossing* event, gpointer data) noexcept
{
    if (event->mode == GDK_CROSSING_UNGRAB && event->detail != GDK_NOTIFY_INFERIOR && !isUnderMouse(widget))
        send(*static_cast<wxWindow*>(data), wxEVT_LEAVE_WINDOW);
    return FALSE;
}

} // namespace

void Platform::watchHover(wxWindow& window)
{
    watchHover(window, window.GetHandle());
}

void Platform::watchHover(wxWindow& window, GtkWidget* widget)
{
    // wxWidgets removes the handlers whose data is the window together with the window.
    g_signal_connect(widget, "state-flags-changed", G_CALLBACK(&onStateChanged), &window);
    g_signal_connect(widget, "leave-notify-event", G_CALLBACK(&onLeft), &window);
}

} // namespace Nolvex
