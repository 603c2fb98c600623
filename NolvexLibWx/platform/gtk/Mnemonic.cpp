// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/Mnemonic.h"

#include <wx/control.h>

#include <gtk/gtk.h>

#include <utility>

namespace Nolvex {

namespace {

unsigned keyOf(const wxString& label)
{
    wxString text;
    const int index = wxControl::FindAccelIndex(label, &text);
    if (index == wxNOT_FOUND)
        return 0;
    const auto letter = static_cast<guint32>(text[static_cast<std::size_t>(index)].GetValue());
    return gdk_keyval_to_lower(gdk_unicode_to_keyval(letter));
}

} // namespace

Platform::Mnemonic::Mnemonic(GtkWidget* widget, std::function<void(bool works)> onStruck)
    : m_widget(widget), m_onStruck(std::move(onStruck))
{
    g_signal_connect(m_widget, "hierarchy-changed", G_CALLBACK(&onHierarchyChanged), this);
    g_signal_connect(m_widget, "mnemonic-activate", G_CALLBACK(&onMnemonic), this);
}

Platform::Mnemonic::~Mnemonic()
{
    removeFrom(gtk_widget_get_toplevel(m_widget));
    g_signal_handlers_disconnect_by_data(m_widget, this);
}

void Platform::Mnemonic::setLabel(const wxString& label)
{
    GtkWidget* const topLevel = gtk_widget_get_toplevel(m_widget);
    removeFrom(topLevel);
    m_key = keyOf(label);
    addTo(topLevel);
}

void Platform::Mnemonic::onHierarchyChanged(GtkWidget* widget, GtkWidget* previous, Mnemonic* self) noexcept
{
    self->removeFrom(previous);
    self->addTo(gtk_widget_get_toplevel(widget));
}

int Platform::Mnemonic::onMnemonic(GtkWidget* /*widget*/, int isShared, Mnemonic* self) noexcept
{
    // The copy is needed because the function may destroy this object, and with it the original.
    const std::function<void(bool)> onStruck = self->m_onStruck;
    onStruck(isShared == FALSE);
    return TRUE;
}

// gtk_widget_get_toplevel returns another widget than a window if the widget is in no window.

void Platform::Mnemonic::addTo(GtkWidget* topLevel) const
{
    if (m_key != 0 && topLevel != nullptr && GTK_IS_WINDOW(topLevel))
        gtk_window_add_mnemonic(GTK_WINDOW(topLevel), m_key, m_widget);
}

void Platform::Mnemonic::removeFrom(GtkWidget* topLevel) const
{
    if (m_key != 0 && topLevel != nullptr && GTK_IS_WINDOW(topLevel))
        gtk_window_remove_mnemonic(GTK_WINDOW(topLevel), m_key, m_widget);
}

} // namespace Nolvex
