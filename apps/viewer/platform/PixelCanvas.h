// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/gdicmn.h>

#include <cstdint>
#include <memory>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Viewer::Platform {

/// Pixels in the memory from which the system draws. A bitmap of wxWidgets would be allocated and converted
/// anew by GTK each time its pixels change, which takes longer than to make the pixels.
class PixelCanvas : private Noncopyable
{
public:
    /// The pixels are undefined at first. The canvas is invalid if the size is empty or too large, or if
    /// memory has run out.
    explicit PixelCanvas(const wxSize& size);
    ~PixelCanvas();

    bool isOk() const { return m_pixels != nullptr; }

    wxSize size() const { return m_size; }

    /// The memory of a row. Each pixel is a number, 0x00RRGGBB. Several threads may write to different rows
    /// at once.
    std::uint32_t* row(int y);
    const std::uint32_t* row(int y) const;

    /// Draws the canvas with its top left corner at the origin of the DC. `density` is the number of pixels
    /// in each direction for one pixel of the DC.
    void draw(wxDC& dc, int density) const;

private:
    class Pixels;

    wxSize m_size;
    std::unique_ptr<Pixels> m_pixels;
};

} // namespace Nolvex::Viewer::Platform
