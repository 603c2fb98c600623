// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ReadableSigns.h"

#include <wx/dc.h>
#include <wx/graphics.h>

void Nolvex::Platform::turnToReadableSigns(wxGraphicsContext& context, const wxDC& dc, int left, int width)
{
    context.Translate(dc.GetSize().x - 2 * left - width, 0);
}
