// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/window.h>

namespace Nolvex {

GtkWidget* Platform::textWidget(const wxWindow& text)
{
    GtkWidget* const widget = text.GetHandle();
    return GTK_IS_SCROLLED_WINDOW(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : widget;
}

} // namespace Nolvex
