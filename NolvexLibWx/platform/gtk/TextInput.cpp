// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextInput.h"

#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/textctrl.h>

#include <memory>

namespace Nolvex {

namespace {

struct EventDeleter
{
    void operator()(GdkEvent* event) const { gdk_event_free(event); }
};

// Sent when the keyboard moves the focus here, not when the mouse or the program does.
gboolean onFocus(GtkWidget* widget, GtkDirectionType /*direction*/, gpointer control) noexcept
{
    if (!static_cast<const wxWindow*>(control)->AcceptsFocusFromKeyboard())
        g_signal_stop_emission_by_name(widget, "focus");
    return FALSE;
}

// The capture going from one part of the widget to another is not lost.
gboolean onEvent(GtkWidget* widget, GdkEvent* event, gpointer /*data*/) noexcept
{
    if (event->type != GDK_GRAB_BROKEN || event->grab_broken.grab_window == nullptr)
        return FALSE;
    gpointer owner = nullptr;
    gdk_window_get_user_data(event->grab_broken.grab_window, &owner);
    return owner == widget ? TRUE : FALSE;
}

void keepCaptureInside(GtkWidget* widget)
{
    void* const handler = reinterpret_cast<void*>(&onEvent);
    if (g_signal_handler_find(widget, G_SIGNAL_MATCH_FUNC, 0, 0, nullptr, handler, nullptr) == 0)
        g_signal_connect(widget, "event", G_CALLBACK(&onEvent), nullptr);
}

} // namespace

void Platform::askBeforeTabbing(wxWindow& control)
{
    // The toolkit takes the handlers that have the window for their data away with the window.
    g_signal_connect(control.GetHandle(), "focus", G_CALLBACK(&onFocus), &control);
}

// The toolkit captures for the widget's outer window but listens only to the inner one, where the text is and
// where the press arrived.
void Platform::captureMouse(wxTextCtrl& text)
{
    GtkWidget* const widget = textWidget(text);
    // A single line has no outer window of its own. The system itself holds the mouse there until its
    // release.
    if (!GTK_IS_TEXT_VIEW(widget))
        return;
    keepCaptureInside(widget);
    text.CaptureMouse();
    const std::unique_ptr<GdkEvent, EventDeleter> press(gtk_get_current_event());
    if (!press || press->type != GDK_BUTTON_PRESS || gtk_get_event_widget(press.get()) != widget)
        return;
    // Without the event, whose time is before that of the toolkit's capture: it would be refused.
    gdk_seat_grab(gdk_device_get_seat(gdk_event_get_device(press.get())), press->any.window,
                  GDK_SEAT_CAPABILITY_ALL_POINTING, FALSE, nullptr, nullptr, nullptr, nullptr);
}

} // namespace Nolvex
