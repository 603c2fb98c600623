// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/PixelCanvas.h"

#include <wx/dc.h>
#include <wx/msw/wrapwin.h>

#include <cstddef>

namespace Nolvex::Viewer::Platform {

/// A bitmap whose pixels the program can write, selected into a device context.
class PixelCanvas::Pixels : private Noncopyable
{
public:
    explicit Pixels(const wxSize& size) : m_context(::CreateCompatibleDC(nullptr)), m_width(size.x)
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

    std::uint32_t* row(int y) const { return m_data + static_cast<std::ptrdiff_t>(y) * m_width; }

private:
    HDC m_context;
    int m_width;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    std::uint32_t* m_data = nullptr;
};

PixelCanvas::PixelCanvas(const wxSize& size) : m_size(size)
{
    if (size.x <= 0 || size.y <= 0)
        return;
    m_pixels = std::make_unique<Pixels>(size);
    if (!m_pixels->isOk())
        m_pixels.reset();
}

PixelCanvas::~PixelCanvas() = default;

std::uint32_t* PixelCanvas::row(int y)
{
    return m_pixels->row(y);
}

const std::uint32_t* PixelCanvas::row(int y) const
{
    return m_pixels->row(y);
}

// On Windows a pixel of a DC is a pixel of the device.
void PixelCanvas::draw(wxDC& dc, int /*density*/) const
{
    ::GdiFlush();
    ::BitBlt(static_cast<HDC>(dc.GetHandle()), 0, 0, m_size.x, m_size.y, m_pixels->context(), 0, 0, SRCCOPY);
}

} // namespace Nolvex::Viewer::Platform
