// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ReadableSigns.h"

#include <wx/graphics.h>

void Nolvex::Platform::turnToReadableSigns(wxGraphicsContext& context, const wxDC& /*dc*/, int left,
                                           int width)
{
    context.Translate(2 * left + width, 0);
    context.Scale(-1, 1);
}
