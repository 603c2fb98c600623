// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ScreenPixels.h"

#include <wx/msw/wrapwin.h>

#include <cstddef>

namespace Nolvex {

namespace {

constexpr int BYTES_PER_PIXEL = 4;

class ScreenDc
{
public:
    ScreenDc() : m_dc(GetDC(nullptr)) {}

    ~ScreenDc() { ReleaseDC(nullptr, m_dc); }

    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;

    HDC get() const { return m_dc; }

private:
    HDC m_dc;
};

// Pixels in memory that GDI can draw on. Each has four bytes; the top row comes first.
class DrawablePixels
{
public:
    DrawablePixels(const ScreenDc& screen, Pixel size) : m_dc(CreateCompatibleDC(screen.get()))
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.x;
        info.bmiHeader.biHeight = -size.y;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 8 * BYTES_PER_PIXEL;
        info.bmiHeader.biCompression = BI_RGB;
        m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
        m_previous = SelectObject(m_dc, m_bitmap);
    }

    ~DrawablePixels()
    {
        SelectObject(m_dc, m_previous);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }

    DrawablePixels(const DrawablePixels&) = delete;
    DrawablePixels& operator=(const DrawablePixels&) = delete;

    HDC dc() const { return m_dc; }

    /// Returns null if there is not enough memory. The pixels are complete only after GdiFlush.
    std::uint8_t* bits() const { return static_cast<std::uint8_t*>(m_bits); }

private:
    HDC m_dc;
    void* m_bits = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
};

} // namespace

bool Platform::isScreenReadable()
{
    return true;
}

// The coordinates of wxWidgets are the pixels of the screen on Windows.
std::int32_t Platform::screenScale()
{
    return 1;
}

void Platform::readScreenPixels(const Bucket& area, const TakeScreenRow& take)
{
    readScreen(area, take);
}

void Platform::readScreen(const Bucket& area, const Platform::TakeScreenRow& take)
{
    const ScreenDc screen;
    const DrawablePixels pixels(screen, area.size());
    std::uint8_t* row = pixels.bits();
    // Windows refuses this while the desktop is locked, for example.
    if (row == nullptr || BitBlt(pixels.dc(), 0, 0, area.width(), area.height(), screen.get(), area.min.x,
                                 area.min.y, SRCCOPY) == FALSE)
        return;
    GdiFlush();
    for (std::int32_t y = area.min.y; y < area.max.y;
         ++y, row += static_cast<std::ptrdiff_t>(area.width()) * BYTES_PER_PIXEL)
        take({area.min.x, y}, row, area.width());
}

} // namespace Nolvex
