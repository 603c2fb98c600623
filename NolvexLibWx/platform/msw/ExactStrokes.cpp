// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ExactStrokes.h"

namespace Nolvex {

Platform::ExactStrokes::ExactStrokes(wxDC& dc) : m_dc(dc) {}

Platform::ExactStrokes::~ExactStrokes() = default;

wxPen Platform::ExactStrokes::exactPen(wxPen pen)
{
    return pen;
}

} // namespace Nolvex
