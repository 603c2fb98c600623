// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ExactStrokes.h"

#include <wx/graphics.h>

namespace Nolvex {

Platform::ExactStrokes::ExactStrokes(wxDC& dc) : m_dc(dc)
{
    if (wxGraphicsContext* context = dc.GetGraphicsContext()) {
        m_previousMode = context->GetAntialiasMode();
        context->SetAntialiasMode(wxANTIALIAS_NONE);
    }
}

Platform::ExactStrokes::~ExactStrokes()
{
    if (wxGraphicsContext* context = m_dc.GetGraphicsContext())
        context->SetAntialiasMode(static_cast<wxAntialiasMode>(m_previousMode));
}

wxPen Platform::ExactStrokes::exactPen(wxPen pen)
{
    // The toolkit's round caps reach beyond the end, its round joins miss the corners.
    pen.SetCap(wxCAP_BUTT);
    pen.SetJoin(wxJOIN_MITER);
    return pen;
}

} // namespace Nolvex
