// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PinchGesture.h"

#include <wx/utils.h>
#include <wx/window.h>

// wx/weakref.h does not include all headers that it needs, and therefore follows wx/window.h.
#include <wx/weakref.h>

#include <gtk/gtk.h>

#include <cmath>

namespace Nolvex {

namespace {

void sendMagnification(wxWindow& window, const wxPoint& position, float magnification)
{
    wxMouseEvent event(wxEVT_MAGNIFY);
    event.SetId(window.GetId());
    event.SetEventObject(&window);
    event.SetState(wxGetMouseState());
    event.SetPosition(position);
    event.m_magnification = magnification;
    window.HandleWindowEvent(event);
}

} // namespace

class Platform::PinchGesture::Source : private Noncopyable
{
public:
    explicit Source(wxWindow& window);
    ~Source();

private:
    // Pinches over an inner window of the widget, or over a child that does not use them, count as well.
    static GtkWidget* widgetOf(const wxWindow& window)
    {
        return window.m_wxwindow == nullptr ? window.m_widget : window.m_wxwindow;
    }

    static void onBegin(GtkGesture* gesture, GdkEventSequence* sequence, gpointer data) noexcept;
    static void onScaleChanged(GtkGestureZoom* gesture, gdouble scale, gpointer data) noexcept;
    static void onCancel(GtkGesture* gesture, GdkEventSequence* sequence, gpointer data) noexcept;
    static void onEnd(GtkGesture* gesture, GdkEventSequence* sequence, gpointer data) noexcept;
    void follow(GtkGesture* gesture);
    bool isPinchOfChild() const;

    // The object whose pinch has begun last, and has not ended.
    static Source* s_pinched;

    wxWeakRef<wxWindow> m_window;
    GtkGesture* m_gesture;
    wxPoint m_position; // the middle between the fingers
    double m_scale = 1.0;
    bool m_cancelled = false;
};

Platform::PinchGesture::Source* Platform::PinchGesture::Source::s_pinched = nullptr;

Platform::PinchGesture::Source::Source(wxWindow& window)
    : m_window(&window), m_gesture(gtk_gesture_zoom_new(widgetOf(window)))
{
    gtk_event_controller_set_propagation_phase(GTK_EVENT_CONTROLLER(m_gesture), GTK_PHASE_BUBBLE);
    gtk_widget_add_events(widgetOf(window), GDK_TOUCHPAD_GESTURE_MASK);
    g_signal_connect(m_gesture, "begin", G_CALLBACK(&onBegin), this);
    g_signal_connect(m_gesture, "scale-changed", G_CALLBACK(&onScaleChanged), this);
    g_signal_connect(m_gesture, "cancel", G_CALLBACK(&onCancel), this);
    g_signal_connect(m_gesture, "end", G_CALLBACK(&onEnd), this);
}

Platform::PinchGesture::Source::~Source()
{
    // The gesture outlives this object if a handler of its signals destroys this object.
    g_signal_handlers_disconnect_by_data(m_gesture, this);
    g_object_unref(m_gesture);
    if (s_pinched == this)
        s_pinched = nullptr;
}

// GTK lets the gestures of a child begin before those of its parents. Claiming the pinch for the child would
// also take the pinch away from the gestures that wxWidgets uses.
bool Platform::PinchGesture::Source::isPinchOfChild() const
{
    const wxWindow* window = s_pinched == nullptr || s_pinched == this ? nullptr : s_pinched->m_window.get();
    while (window != nullptr && window != m_window)
        window = window->GetParent();
    return window != nullptr;
}

void Platform::PinchGesture::Source::follow(GtkGesture* gesture)
{
    double x = 0;
    double y = 0;
    if (gtk_gesture_get_bounding_box_center(gesture, &x, &y) != FALSE)
        m_position = {wxRound(x), wxRound(y)};
}

void Platform::PinchGesture::Source::onBegin(GtkGesture* gesture, GdkEventSequence* /*sequence*/,
                                             gpointer data) noexcept
{
    auto* const self = static_cast<Source*>(data);
    self->m_scale = 1.0;
    self->m_cancelled = self->isPinchOfChild();
    if (!self->m_cancelled)
        s_pinched = self;
    self->follow(gesture);
}

void Platform::PinchGesture::Source::onScaleChanged(GtkGestureZoom* gesture, gdouble scale,
                                                    gpointer data) noexcept
{
    auto* const self = static_cast<Source*>(data);
    self->m_scale = scale;
    self->follow(GTK_GESTURE(gesture));
}

// GTK goes on to end the gesture.
void Platform::PinchGesture::Source::onCancel(GtkGesture* /*gesture*/, GdkEventSequence* /*sequence*/,
                                              gpointer data) noexcept
{
    static_cast<Source*>(data)->m_cancelled = true;
}

void Platform::PinchGesture::Source::onEnd(GtkGesture* /*gesture*/, GdkEventSequence* /*sequence*/,
                                           gpointer data) noexcept
{
    const auto* const self = static_cast<Source*>(data);
    if (s_pinched == self)
        s_pinched = nullptr;
    const auto magnification = static_cast<float>(self->m_scale - 1.0);
    if (self->m_cancelled || !std::isfinite(magnification))
        return;
    const wxPoint position = self->m_position;
    const wxWeakRef<wxWindow> window(self->m_window);
    // A handler may destroy this object and the window.
    if (window && magnification != 0.0f)
        sendMagnification(*window, position, magnification);
    if (window)
        sendMagnification(*window, position, 0.0f);
}

Platform::PinchGesture::PinchGesture(wxWindow& window) : m_source(std::make_unique<Source>(window)) {}

Platform::PinchGesture::~PinchGesture() = default;

} // namespace Nolvex
