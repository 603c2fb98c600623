// SPDX-License-Identifier: MIT
#include "support/NativeTestWindow.h"

#include "NolvexLibWx/NativeWindows.h"
#include "support/Events.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

namespace Nolvex {

namespace {

GtkWidget* widget(WindowHandle window)
{
    return static_cast<GtkWidget*>(window.native);
}

} // namespace

// The reference keeps the widget valid, so that a test can ask for a window that has been destroyed.
Tests::NativeTestWindow::NativeTestWindow()
    : m_window{g_object_ref(gtk_window_new(GTK_WINDOW_TOPLEVEL))}, m_field{gtk_entry_new()}
{
    gtk_window_set_title(GTK_WINDOW(widget(m_window)), "native");
    gtk_window_set_default_size(GTK_WINDOW(widget(m_window)), 300, 200);
    gtk_window_move(GTK_WINDOW(widget(m_window)), 200, 150);
    gtk_container_add(GTK_CONTAINER(widget(m_window)), widget(m_field));
    gtk_widget_show_all(widget(m_window));
    gtk_window_present(GTK_WINDOW(widget(m_window)));
    EXPECT_TRUE(pumpUntil([this] { return hasFocus(); }));
}

Tests::NativeTestWindow::~NativeTestWindow()
{
    destroy();
    g_object_unref(m_window.native);
    pumpEvents(10);
}

void Tests::NativeTestWindow::destroy()
{
    if (isAlive())
        gtk_widget_destroy(widget(m_window));
}

bool Tests::NativeTestWindow::isAlive() const
{
    return gtk_bin_get_child(GTK_BIN(widget(m_window))) != nullptr;
}

bool Tests::NativeTestWindow::isEnabled() const
{
    return isAlive() && gtk_widget_is_sensitive(widget(m_field)) != 0;
}

bool Tests::NativeTestWindow::hasFocus() const
{
    return isAlive() && gtk_widget_has_focus(widget(m_field)) != 0;
}

String Tests::NativeTestWindow::text() const
{
    return String::fromUtf8(gtk_entry_get_text(GTK_ENTRY(widget(m_field))));
}

Bucket Tests::NativeTestWindow::region() const
{
    return Wx::getScreenRegion(m_window);
}

} // namespace Nolvex
