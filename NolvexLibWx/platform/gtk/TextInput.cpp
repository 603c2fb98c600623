// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextInput.h"

#include "NolvexLibWx/platform/gtk/HoverWatch.h"
#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/textctrl.h>

namespace Nolvex {

namespace {

bool belongsTo(GdkWindow* window, GtkWidget* widget)
{
    gpointer owner = nullptr;
    gdk_window_get_user_data(window, &owner);
    return owner == widget;
}

// Keeps wxWidgets from reporting a lost capture when the capture moves to another window of the same widget.
// The outer window of an entry is the window of its parent.
gboolean onEvent(GtkWidget* widget, GdkEvent* event, gpointer /*data*/) noexcept
{
    GdkWindow* const grabber = event->type == GDK_GRAB_BROKEN ? event->grab_broken.grab_window : nullptr;
    if (grabber == nullptr)
        return FALSE;
    return belongsTo(grabber, widget) || grabber == gtk_widget_get_window(widget) ? TRUE : FALSE;
}

// Returns the widest window of the entry, as the others belong to its icons, or null before it is realised.
GdkWindow* textWindowOf(GtkEntry* entry)
{
    GtkWidget* const widget = GTK_WIDGET(entry);
    GdkWindow* const outer = gtk_widget_get_window(widget);
    GdkWindow* widest = nullptr;
    for (const GList* item = outer == nullptr ? nullptr : gdk_window_peek_children(outer); item != nullptr;
         item = item->next) {
        auto* const window = static_cast<GdkWindow*>(item->data);
        if (belongsTo(window, widget) &&
            (widest == nullptr || gdk_window_get_width(window) > gdk_window_get_width(widest)))
            widest = window;
    }
    return widest;
}

GdkWindow* innerWindow(GtkWidget* widget)
{
    return GTK_IS_TEXT_VIEW(widget) ? gtk_text_view_get_window(GTK_TEXT_VIEW(widget), GTK_TEXT_WINDOW_TEXT)
                                    : textWindowOf(GTK_ENTRY(widget));
}

} // namespace

void Platform::removeLengthLimit(wxTextCtrl& /*text*/) {}

void Platform::prepareCapture(wxTextCtrl& text)
{
    GtkWidget* const widget = textWidget(text);
    void* const handler = reinterpret_cast<void*>(&onEvent);
    if (g_signal_handler_find(widget, G_SIGNAL_MATCH_FUNC, 0, 0, nullptr, handler, nullptr) != 0)
        return;
    g_signal_connect(widget, "event", G_CALLBACK(&onEvent), nullptr);
    // A control that is disabled during a drag does not hear of the release of the button. The event for the
    // mouse that enters, which the control gets when it is enabled under the mouse, ends the drag.
    watchHover(text, widget);
}

// wxWidgets captures the mouse for the widget's outer window (for an entry, the window of its parent) but
// only handles events of the inner window, which holds the text.
void Platform::directCapture(wxTextCtrl& text)
{
    GdkWindow* const window = innerWindow(textWidget(text));
    if (window == nullptr)
        return;
    // Without an event, GTK uses the current time. The event is older than the capture, and GTK would refuse
    // it.
    GdkSeat* const seat = gdk_display_get_default_seat(gdk_window_get_display(window));
    gdk_seat_grab(seat, window, GDK_SEAT_CAPABILITY_ALL_POINTING, FALSE, nullptr, nullptr, nullptr, nullptr);
}

} // namespace Nolvex
