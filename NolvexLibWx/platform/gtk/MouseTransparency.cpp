// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/MouseTransparency.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

void takeNoInput(GtkWidget* widget)
{
    cairo_region_t* const nothing = cairo_region_create();
    gtk_widget_input_shape_combine_region(widget, nothing);
    cairo_region_destroy(nothing);
}

void onMapped(GtkWidget* widget, gpointer /*data*/) noexcept
{
    takeNoInput(widget);
}

} // namespace

void Platform::letMouseThrough(wxWindow& window)
{
    takeNoInput(window.GetHandle());
    // When GTK maps the window, it realizes the children, and each child without a window of its own, such as
    // the box inside a frame, takes the shape away from the window.
    g_signal_connect_after(window.GetHandle(), "map", G_CALLBACK(&onMapped), nullptr);
}

} // namespace Nolvex
