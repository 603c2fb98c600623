// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelCanvas.h"

#include <utility>

namespace Nolvex::Viewer {

wxBitmap PixelCanvas::makeBitmap(const wxSize& size)
{
    constexpr int OPAQUE_DEPTH = 24;
    wxBitmap bitmap;
    if (size.x > 0 && size.y > 0)
        bitmap.Create(size, OPAQUE_DEPTH);
    return bitmap;
}

std::uint8_t* PixelCanvas::row(int y)
{
    wxNativePixelData::Iterator pixel(m_data);
    pixel.MoveTo(m_data, 0, y);
    return reinterpret_cast<std::uint8_t*>(pixel.m_ptr);
}

void PixelCanvas::swapToNativeOrder(std::uint8_t* colours, int count)
{
    if constexpr (wxNativePixelFormat::RED != 0) {
        for (int x = 0; x < count; ++x, colours += COLOUR_BYTES)
            std::swap(colours[0], colours[2]);
    }
}

} // namespace Nolvex::Viewer
