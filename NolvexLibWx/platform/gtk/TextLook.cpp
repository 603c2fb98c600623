// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextLook.h"

#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/textctrl.h>

namespace Nolvex {

namespace {

constexpr int MARGIN = 2; // pixels between border and text, as in an edit control of Windows

// A theme has its own colour of borders, which may be brighter than any text of a dark skin. And wxWidgets
// sets one text colour for all states, so that a disabled control would look enabled. Transitions would show
// the colours of the theme for a moment whenever a control appears.
constexpr const char* LOOK = "* { transition: none; }"
                             "*:not(:focus) { border-color: alpha(currentColor, 0.4); }"
                             "textview text:disabled, entry:disabled { color: alpha(currentColor, 0.4); }";

void addLook(GtkWidget* widget)
{
    constexpr guint PRIORITY = GTK_STYLE_PROVIDER_PRIORITY_APPLICATION + 1; // wxWidgets uses APPLICATION
    GtkCssProvider* const provider = gtk_css_provider_new();
    gtk_css_provider_load_from_data(provider, LOOK, -1, nullptr);
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(provider),
                                   PRIORITY);
    g_object_unref(provider);
}

} // namespace

void Platform::adaptTextLook(const wxTextCtrl& text)
{
    GtkWidget* const widget = textWidget(text);
    addLook(widget);
    if (!GTK_IS_TEXT_VIEW(widget))
        return;
    addLook(text.GetHandle()); // in a text area, the scrolled window has the border
    gtk_text_view_set_left_margin(GTK_TEXT_VIEW(widget), MARGIN);
    gtk_text_view_set_right_margin(GTK_TEXT_VIEW(widget), MARGIN);
}

} // namespace Nolvex
