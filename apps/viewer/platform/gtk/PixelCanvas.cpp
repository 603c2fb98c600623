// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/PixelCanvas.h"

#include "NolvexLib/Noncopyable.h"

#include <wx/dc.h>

#include <cairo.h>

#include <cstddef>

namespace Nolvex::Viewer::Platform {

/// The pixels of a surface of cairo.
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

    PixelRows rows(const wxSize& size) const
    {
        return {size, reinterpret_cast<std::uint32_t*>(m_data),
                m_stride / static_cast<std::ptrdiff_t>(sizeof(std::uint32_t))};
    }

private:
    cairo_surface_t* m_surface;
    unsigned char* m_data;
    int m_stride;
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
