// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/InputMethod.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

void onCharacters(GtkIMContext* /*context*/, const char* characters, gpointer window) noexcept
{
    static_cast<wxWindow*>(window)->GTKDoInsertTextFromIM(characters);
}

} // namespace

void Platform::useNoInputMethod(wxWindow& window)
{
    // In a parent that is on the screen, the window is realised at once and has a context already, whose
    // other owners, if any, must not reach the window through the context.
    if (GtkIMContext* former = window.m_imContext) {
        g_signal_handlers_disconnect_by_data(former, &window);
        gtk_im_context_set_client_window(former, nullptr);
        g_object_unref(former);
    }
    // wxWidgets learns the characters of keys from the context, and frees it with the window.
    window.m_imContext = gtk_im_context_simple_new();
    g_signal_connect(window.m_imContext, "commit", G_CALLBACK(onCharacters), &window);
    gtk_im_context_set_client_window(window.m_imContext, window.GTKGetDrawingWindow());
}

} // namespace Nolvex
