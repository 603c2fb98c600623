// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/PixelCanvas.h"

namespace Nolvex::Viewer::Platform {

PixelCanvas::PixelCanvas(const wxSize& size)
{
    if (size.x > 0 && size.y > 0)
        m_pixels = makePixels(size);
    static_cast<PixelRows&>(*this) = m_pixels ? rowsOf(*m_pixels, size) : PixelRows(size, nullptr, 0);
}

} // namespace Nolvex::Viewer::Platform
