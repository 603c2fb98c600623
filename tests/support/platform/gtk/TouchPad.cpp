// SPDX-License-Identifier: MIT
#include "support/TouchPad.h"

#include <wx/window.h>

#include <gtk/gtk.h>

#include <cstdint>

namespace Nolvex {

namespace {

constexpr double PLACE = 20; // of the fingers in the window

// Lets GTK handle the event as one of the pointer's device.
void deliver(GtkWidget* widget, GdkEvent* event)
{
    GdkDevice* const pointer =
        gdk_seat_get_pointer(gdk_display_get_default_seat(gtk_widget_get_display(widget)));
    gdk_event_set_device(event, pointer);
    gdk_event_set_source_device(event, pointer);
    gtk_main_do_event(event);
}

void send(GtkWidget* widget, GdkTouchpadGesturePhase phase, double scale)
{
    GdkWindow* const window = gtk_widget_get_window(widget);
    if (window == nullptr)
        return;
    GdkEvent* const event = gdk_event_new(GDK_TOUCHPAD_PINCH);
    event->touchpad_pinch.window = GDK_WINDOW(g_object_ref(window));
    event->touchpad_pinch.phase = static_cast<gint8>(phase);
    event->touchpad_pinch.n_fingers = 2;
    event->touchpad_pinch.x = PLACE;
    event->touchpad_pinch.y = PLACE;
    event->touchpad_pinch.scale = scale;
    deliver(widget, event);
    gdk_event_free(event);
}

void sendTouch(GtkWidget* widget, GdkEventType type, std::uintptr_t finger, double x)
{
    GdkWindow* const window = gtk_widget_get_window(widget);
    if (window == nullptr)
        return;
    GdkEvent* const event = gdk_event_new(type);
    event->touch.window = GDK_WINDOW(g_object_ref(window));
    // Nothing looks into a sequence, which only tells the fingers apart.
    event->touch.sequence = reinterpret_cast<GdkEventSequence*>(finger);
    event->touch.x = x;
    event->touch.y = PLACE;
    deliver(widget, event);
    event->touch.sequence = nullptr;
    gdk_event_free(event);
}

GtkWidget* widgetOf(const wxWindow* window)
{
    return window->m_wxwindow == nullptr ? window->m_widget : window->m_wxwindow;
}

} // namespace

bool Tests::pinchTouchPad(wxWindow* window, const std::vector<double>& scales, PinchEnd end)
{
    GtkWidget* const widget = widgetOf(window);
    g_object_ref(widget);
    send(widget, GDK_TOUCHPAD_GESTURE_PHASE_BEGIN, 1.0);
    for (const double scale : scales)
        send(widget, GDK_TOUCHPAD_GESTURE_PHASE_UPDATE, scale);
    const double last = scales.empty() ? 1.0 : scales.back();
    send(widget, end == PinchEnd::LIFTED ? GDK_TOUCHPAD_GESTURE_PHASE_END : GDK_TOUCHPAD_GESTURE_PHASE_CANCEL,
         last);
    g_object_unref(widget);
    return true;
}

bool Tests::pinchTouchScreen(wxWindow* window, int distance, int lastDistance)
{
    constexpr std::uintptr_t FIRST = 1;
    constexpr std::uintptr_t SECOND = 2;
    GtkWidget* const widget = widgetOf(window);
    g_object_ref(widget);
    sendTouch(widget, GDK_TOUCH_BEGIN, FIRST, PLACE);
    sendTouch(widget, GDK_TOUCH_BEGIN, SECOND, PLACE + distance);
    sendTouch(widget, GDK_TOUCH_UPDATE, SECOND, PLACE + lastDistance);
    sendTouch(widget, GDK_TOUCH_END, SECOND, PLACE + lastDistance);
    sendTouch(widget, GDK_TOUCH_END, FIRST, PLACE);
    g_object_unref(widget);
    return true;
}

} // namespace Nolvex
