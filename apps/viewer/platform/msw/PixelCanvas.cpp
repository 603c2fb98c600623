// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/PixelCanvas.h"

#include "NolvexLib/Noncopyable.h"

#include <wx/dc.h>
#include <wx/msw/wrapwin.h>

#include <cstddef>

namespace Nolvex::Viewer::Platform {

/// A bitmap whose pixels the program can write, selected into a device context.
class PixelCanvas::Pixels : private Noncopyable
{
public:
    explicit Pixels(const wxSize& size) : m_context(::CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = size.x;
        info.bmiHeader.biHeight = -size.y; // a negative height puts the top row first
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* data = nullptr;
        m_bitmap = ::CreateDIBSection(m_context, &info, DIB_RGB_COLORS, &data, nullptr, 0);
        m_data = static_cast<std::uint32_t*>(data);
        if (m_bitmap != nullptr)
            m_previous = ::SelectObject(m_context, m_bitmap);
    }

    ~Pixels()
    {
        if (m_bitmap != nullptr) {
            ::SelectObject(m_context, m_previous);
            ::DeleteObject(m_bitmap);
        }
        ::DeleteDC(m_context);
    }

    bool isOk() const { return m_context != nullptr && m_data != nullptr; }

    HDC context() const { return m_context; }

    PixelRows rows(const wxSize& size) const { return {size, m_data, size.x}; }

private:
    HDC m_context;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    std::uint32_t* m_data = nullptr;
};

std::shared_ptr<PixelCanvas::Pixels> PixelCanvas::makePixels(const wxSize& size)
{
    auto pixels = std::make_shared<Pixels>(size);
    return pixels->isOk() ? pixels : nullptr;
}

PixelRows PixelCanvas::rowsOf(const Pixels& pixels, const wxSize& size)
{
    return pixels.rows(size);
}

// On Windows a pixel of a DC is a pixel of the device.
void PixelCanvas::draw(wxDC& dc, int /*density*/) const
{
    ::GdiFlush();
    ::BitBlt(static_cast<HDC>(dc.GetHandle()), 0, 0, size().x, size().y, m_pixels->context(), 0, 0, SRCCOPY);
}

} // namespace Nolvex::Viewer::Platform
