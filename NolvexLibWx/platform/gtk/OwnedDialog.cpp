// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OwnedDialog.h"

#include "NolvexLibWx/NativeWindows.h"

#include <wx/dialog.h>

#include <gtk/gtk.h>

#include <utility>

namespace Nolvex {

namespace {

void callBack(GtkWidget* /*owner*/, gpointer callback) noexcept
{
    // The callback may destroy the dialog, and with the dialog the original.
    const Function<void()> onDestroyed = *static_cast<Function<void()>*>(callback);
    onDestroyed();
}

void freeCallback(gpointer callback, GClosure* /*closure*/) noexcept
{
    delete static_cast<Function<void()>*>(callback);
}

// GTK frees the closure when the first of the two widgets is destroyed.
void watchOwner(GtkWidget* dialog, GtkWindow* owner, Function<void()> onDestroyed)
{
    auto* const callback = new Function<void()>(std::move(onDestroyed));
    GClosure* const closure = g_cclosure_new(G_CALLBACK(callBack), callback, freeCallback);
    g_object_watch_closure(G_OBJECT(dialog), closure);
    g_signal_connect_closure(owner, "destroy", closure, FALSE);
}

} // namespace

void Platform::attachOwner(wxDialog& dialog, WindowHandle owner, Function<void()> onOwnerDestroyed)
{
    auto* const window = GTK_WINDOW(dialog.GetHandle());
    Wx::setOwnerFromNativeHandle({window}, owner);
    // ShowModal would replace the owner by a window of wxWidgets.
    if (gtk_window_get_transient_for(window) != nullptr)
        dialog.SetWindowStyleFlag(dialog.GetWindowStyleFlag() | wxDIALOG_NO_PARENT);
    // ShowModal would make the same choice, but too late for the dialog to be placed above its owner.
    else if (const wxWindow* chosen = dialog.GetParentForModalDialog())
        gtk_window_set_transient_for(window, GTK_WINDOW(chosen->GetHandle()));
    if (GtkWindow* const attached = gtk_window_get_transient_for(window))
        watchOwner(GTK_WIDGET(window), attached, std::move(onOwnerDestroyed));
}

void Platform::takeKeys(wxDialog& dialog)
{
    // GTK would give the focus to any child, or to none. GTK remembers the widget until the dialog is shown.
    gtk_widget_set_can_focus(dialog.m_wxwindow, TRUE);
    gtk_widget_grab_focus(dialog.m_wxwindow);
}

void Platform::markAsAlert(wxDialog& dialog)
{
    atk_object_set_role(gtk_widget_get_accessible(dialog.GetHandle()), ATK_ROLE_ALERT);
}

} // namespace Nolvex
