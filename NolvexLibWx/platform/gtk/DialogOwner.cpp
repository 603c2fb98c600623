// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogOwner.h"

#include "NolvexLibWx/platform/NativeWindow.h"

#include <wx/app.h>
#include <wx/window.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

GtkWidget* activeTopLevel()
{
    GList* const windows = gtk_window_list_toplevels();
    GtkWidget* active = nullptr;
    for (const GList* item = windows; item != nullptr; item = item->next) {
        auto* const window = GTK_WINDOW(item->data);
        if (gtk_window_is_active(window) && gtk_window_get_window_type(window) == GTK_WINDOW_TOPLEVEL)
            active = GTK_WIDGET(window);
    }
    g_list_free(windows);
    return active;
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

} // namespace Nolvex
