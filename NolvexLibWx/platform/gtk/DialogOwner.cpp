// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogOwner.h"

#include "NolvexLib/Stack.h"
#include "NolvexLibWx/platform/NativeWindow.h"

#include <wx/app.h>
#include <wx/dialog.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

Stack<GtkWindow*> topLevels()
{
    Stack<GtkWindow*> topLevels;
    GList* const windows = gtk_window_list_toplevels();
    for (const GList* item = windows; item != nullptr; item = item->next)
        topLevels.push_back(GTK_WINDOW(item->data));
    g_list_free(windows);
    return topLevels;
}

GtkWidget* activeTopLevel()
{
    for (GtkWindow* const window : topLevels()) {
        if (gtk_window_is_active(window) && gtk_window_get_window_type(window) == GTK_WINDOW_TOPLEVEL)
            return GTK_WIDGET(window);
    }
    return nullptr;
}

bool isOwnedBy(GtkWindow* window, const GtkWidget* owner)
{
    while (window != nullptr && GTK_WIDGET(window) != owner)
        window = gtk_window_get_transient_for(window);
    return window != nullptr;
}

// wxWidgets would choose these windows as parents, too, but would not notice their destruction.
WindowHandle replacement()
{
    if (GtkWidget* const active = activeTopLevel())
        return {active};
    for (wxWindow* window : {wxGetTopLevelParent(wxGetActiveWindow()), wxApp::GetMainTopWindow()}) {
        if (window != nullptr && window->IsShownOnScreen())
            return Platform::topLevelWindow({window->GetHandle()});
    }
    return {};
}

} // namespace

WindowHandle Platform::dialogOwner(WindowHandle owner)
{
    const WindowHandle topLevel = topLevelWindow(owner);
    return topLevel ? topLevel : replacement();
}

bool Platform::isPossibleParent(const wxWindow& wrapper)
{
    return wrapper.GetHandle() != nullptr;
}

bool Platform::cancelOwnedDialogs(const wxWindow& dialog)
{
    bool found = false;
    for (GtkWindow* const window : topLevels()) {
        const bool isOwned =
            GTK_WIDGET(window) != dialog.GetHandle() && isOwnedBy(window, dialog.GetHandle());
        if (!isOwned || !GTK_IS_DIALOG(window) || !gtk_widget_get_visible(GTK_WIDGET(window)))
            continue;
        found = true;
        gtk_dialog_response(GTK_DIALOG(window), GTK_RESPONSE_CANCEL);
    }
    return found;
}

void Platform::cancelDialog(wxDialog& dialog)
{
    GtkWidget* const widget = dialog.GetHandle();
    if (widget == nullptr || !gtk_widget_get_visible(widget))
        return;
    if (GTK_IS_DIALOG(widget))
        gtk_dialog_response(GTK_DIALOG(widget), GTK_RESPONSE_CANCEL);
    else
        dialog.Close(true);
}

} // namespace Nolvex
