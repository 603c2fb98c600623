// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/PixelCanvas.h"

#include <wx/dc.h>

#include <cairo.h>

#include <cstddef>

namespace Nolvex::Viewer::Platform {

/// A surface of cairo.
class PixelCanvas::Pixels : private Noncopyable
{
public:
    explicit Pixels(const wxSize& size)
        : m_surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.x, size.y)),
          m_data(cairo_image_surface_get_data(m_surface)),
          m_stride(cairo_image_surface_get_stride(m_surface))
    {}

    ~Pixels() { cairo_surface_destroy(m_surface); }

    // cairo refuses sizes above 32767 and those without memory.
    bool isOk() const { return cairo_surface_status(m_surface) == CAIRO_STATUS_SUCCESS && m_data != nullptr; }

    cairo_surface_t* surface() const { return m_surface; }

    std::uint32_t* row(int y) const
    {
        return reinterpret_cast<std::uint32_t*>(m_data + static_cast<std::ptrdiff_t>(y) * m_stride);
    }

private:
    cairo_surface_t* m_surface;
    unsigned char* m_data;
    int m_stride;
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

void PixelCanvas::draw(wxDC& dc, int density) const
{
    auto* const cairo = static_cast<cairo_t*>(dc.GetHandle());
    if (cairo == nullptr)
        return;
    cairo_surface_mark_dirty(m_pixels->surface());
    cairo_surface_set_device_scale(m_pixels->surface(), density, density);
    cairo_save(cairo);
    cairo_set_source_surface(cairo, m_pixels->surface(), 0.0, 0.0);
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_NEAREST);
    cairo_paint(cairo);
    cairo_restore(cairo);
}

} // namespace Nolvex::Viewer::Platform
