// SPDX-License-Identifier: MIT
#include "support/ScreenSource.h"

#include <wx/dc.h>
#include <wx/graphics.h>

#include <cairo.h>

void Nolvex::Tests::refreshScreenSource(wxDC& screen)
{
    // cairo keeps a copy of the root window and does not notice that other programs draw on the screen.
    if (wxGraphicsContext* context = screen.GetGraphicsContext())
        cairo_surface_mark_dirty(cairo_get_target(static_cast<cairo_t*>(context->GetNativeContext())));
}
