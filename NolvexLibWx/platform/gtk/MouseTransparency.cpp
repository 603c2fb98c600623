// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/MouseTransparency.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace Nolvex {

void Platform::letMouseThrough(wxWindow& window)
{
    cairo_region_t* const nothing = cairo_region_create();
    gtk_widget_input_shape_combine_region(window.GetHandle(), nothing);
    cairo_region_destroy(nothing);
}

} // namespace Nolvex
