// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer::Platform {

/// Rows of pixels in memory that the owner of this object keeps. Each pixel is a number, 0x00RRGGBB. The
/// contents change through a constant object, too, and several threads may write to different rows at once.
class PixelRows
{
public:
    /// No rows.
    PixelRows() = default;

    /// `stride` is the distance from a row to the row below, in pixels.
    PixelRows(const wxSize& size, std::uint32_t* pixels, std::ptrdiff_t stride)
        : m_size(size), m_pixels(pixels), m_stride(stride)
    {}

    wxSize size() const { return m_size; }

    std::uint32_t* row(int y) const { return m_pixels + y * m_stride; }

private:
    wxSize m_size;
    std::uint32_t* m_pixels = nullptr;
    std::ptrdiff_t m_stride = 0;
};

} // namespace Nolvex::Viewer::Platform
