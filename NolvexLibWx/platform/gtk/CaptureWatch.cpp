// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CaptureWatch.h"

#include <gtk/gtk.h>

#include <utility>

namespace Nolvex {

namespace {

gboolean passOn(GtkWidget* /*invisible*/, GdkEvent* event, gpointer widget) noexcept
{
    // A GTK grab takes keys, too.
    const bool concernsMouse = event->type == GDK_BUTTON_RELEASE || event->type == GDK_BUTTON_PRESS ||
                               event->type == GDK_2BUTTON_PRESS || event->type == GDK_3BUTTON_PRESS ||
                               event->type == GDK_MOTION_NOTIFY;
    return concernsMouse ? gtk_widget_event(GTK_WIDGET(widget), event) : FALSE;
}

// While an object of this class lives, mouse events reach an insensitive widget that has the pointer grab.
// GTK would drop them, but it sends them to a sensitive widget with a GTK grab, which passes them on
// unchanged.
class InsensitiveInput : private Noncopyable
{
public:
    explicit InsensitiveInput(GtkWidget* widget) : m_invisible(gtk_invisible_new())
    {
        gtk_widget_realize(m_invisible);
        g_signal_connect(m_invisible, "event", G_CALLBACK(&passOn), widget);
        gtk_grab_add(m_invisible);
    }

    ~InsensitiveInput()
    {
        gtk_grab_remove(m_invisible);
        gtk_widget_destroy(m_invisible);
    }

private:
    GtkWidget* m_invisible;
};

} // namespace

bool Platform::canCaptureMouse(const wxWindow& window)
{
    // A window that has just got another parent is shown to wxWidgets before GTK shows it.
    return gtk_widget_get_mapped(window.GetHandle()) != FALSE;
}

class Platform::CaptureWatch::Signals : private Noncopyable
{
public:
    Signals(wxWindow& window, bool staysWhenDisabled, std::function<void()> onUseless)
        : m_widget(GTK_WIDGET(g_object_ref(window.GetHandle()))),
          m_receiver(window.GetConnectWidget()),
          m_staysWhenDisabled(staysWhenDisabled),
          m_onUseless(std::move(onUseless))
    {
        g_signal_connect(m_widget, "state-flags-changed", G_CALLBACK(&Signals::onStateChanged), this);
        // GTK unmaps a widget also when a parent is hidden and when it gets another parent.
        g_signal_connect(m_widget, "unmap", G_CALLBACK(&Signals::onUnmapped), this);
    }

    ~Signals()
    {
        g_signal_handlers_disconnect_by_data(m_widget, this);
        g_object_unref(m_widget);
    }

private:
    static void onStateChanged(GtkWidget* widget, GtkStateFlags /*previous*/, Signals* self) noexcept
    {
        if (gtk_widget_is_sensitive(widget) != FALSE)
            self->m_input.reset();
        else if (!self->m_staysWhenDisabled)
            self->tell();
        else if (!self->m_input)
            self->m_input = std::make_unique<InsensitiveInput>(self->m_receiver);
    }

    static void onUnmapped(GtkWidget* /*widget*/, Signals* self) noexcept { self->tell(); }

    void tell() const
    {
        // The copy is needed because the function destroys this object, and with it the original.
        const std::function<void()> onUseless = m_onUseless;
        onUseless();
    }

    GtkWidget* m_widget;
    GtkWidget* m_receiver;
    bool m_staysWhenDisabled;
    std::function<void()> m_onUseless;
    std::unique_ptr<InsensitiveInput> m_input;
};

Platform::CaptureWatch::CaptureWatch(wxWindow& window, bool staysWhenDisabled,
                                     std::function<void()> onUseless)
    : m_signals(std::make_unique<Signals>(window, staysWhenDisabled, std::move(onUseless)))
{}

Platform::CaptureWatch::~CaptureWatch() = default;

} // namespace Nolvex
