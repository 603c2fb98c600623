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

// wxWidgets learns the characters of keys from a context, which it makes when the window is realised, unless
// the window has one. wxWidgets also frees the context.
void Platform::useNoInputMethod(wxWindow& window)
{
    window.m_imContext = gtk_im_context_simple_new();
    g_signal_connect(window.m_imContext, "commit", G_CALLBACK(onCharacters), &window);
}

} // namespace Nolvex
