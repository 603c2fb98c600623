// SPDX-License-Identifier: MIT
#include "NolvexLibWx/CrispLines.h"

namespace Nolvex {

void CrispLines::drawRectangle(const wxRect& rect)
{
    if (rect.width < 1 || rect.height < 1)
        return;
    // An outline without an inside is a line; the systems disagree about rectangles that thin.
    if (rect.height == 1)
        drawLine(rect.GetTopLeft(), {rect.x + rect.width, rect.y});
    else if (rect.width == 1)
        drawLine(rect.GetTopLeft(), {rect.x, rect.y + rect.height});
    else
        m_dc.DrawRectangle(rect);
}

} // namespace Nolvex
