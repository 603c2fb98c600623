// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/WindowWatch.h"

#include "NolvexLibWx/platform/NativeWindow.h"

#include <gtk/gtk.h>

#include <utility>

namespace Nolvex {

namespace {

// GTK is written in C, so that an exception must not get as far as its frames.
void onDestroy(GtkWidget* /*widget*/, gpointer callback) noexcept
{
    (*static_cast<Function<void()>*>(callback))();
}

} // namespace

Platform::WindowWatch::WindowWatch(WindowHandle window, Function<void()> onDestroyed)
    : m_onDestroyed(std::move(onDestroyed))
{
    if (!isWindow(window))
        return;
    m_window = window;
    // The reference keeps the widget valid for the destructor. GTK sends "destroy" all the same.
    g_object_ref(window.native);
    m_connection = g_signal_connect(window.native, "destroy", G_CALLBACK(onDestroy), &m_onDestroyed);
}

Platform::WindowWatch::~WindowWatch()
{
    if (!m_window)
        return;
    // A destroyed widget has dropped its connections.
    if (g_signal_handler_is_connected(m_window.native, m_connection))
        g_signal_handler_disconnect(m_window.native, m_connection);
    g_object_unref(m_window.native);
}

} // namespace Nolvex
