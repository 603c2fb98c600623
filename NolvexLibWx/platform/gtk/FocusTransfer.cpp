// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/FocusTransfer.h"

#include <wx/event.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <gtk/gtk.h>

#include <memory>

namespace Nolvex {

namespace {

using HeldWidget = std::unique_ptr<GtkWidget, decltype(&g_object_unref)>;

HeldWidget hold(GtkWidget* widget)
{
    return {GTK_WIDGET(g_object_ref(widget)), &g_object_unref};
}

} // namespace

bool Platform::transferFocus(wxWindow& window)
{
    const wxWeakRef<wxWindow> weak(&window);
    const HeldWidget widget = hold(window.GetConnectWidget());
    const HeldWidget topLevel = hold(gtk_widget_get_toplevel(widget.get()));
    window.SetFocus();
    if (weak)
        return true;
    // GTK first tells the old focus window that it loses the focus, then stores a pointer to the new widget.
    if (GTK_IS_WINDOW(topLevel.get()) && gtk_window_get_focus(GTK_WINDOW(topLevel.get())) == widget.get())
        gtk_window_set_focus(GTK_WINDOW(topLevel.get()), nullptr);
    return false;
}

} // namespace Nolvex
