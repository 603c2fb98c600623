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

// wxWidgets drops the crossing events that GTK makes when the sensitivity changes.
void onStateChanged(GtkWidget* widget, GtkStateFlags previous, gpointer data) noexcept
{
    const bool enabled = gtk_widget_is_sensitive(widget) != FALSE;
    const bool wasEnabled = (previous & GTK_STATE_FLAG_INSENSITIVE) == 0;
    if (enabled == wasEnabled || !isUnderMouse(widget))
        return;
    auto* const window = static_cast<wxWindow*>(data);
    wxMouseEvent event(enabled ? wxEVT_ENTER_WINDOW : wxEVT_LEAVE_WINDOW);
    event.SetId(window->GetId());
    event.SetEventObject(window);
    const wxMouseState mouse = wxGetMouseState();
    event.SetState(mouse);
    event.SetPosition(Wx::Detail::screenToClient(*window, mouse.GetPosition()));
    window->HandleWindowEvent(event);
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
}

} // namespace Nolvex
