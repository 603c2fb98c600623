// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/platform/PixelRows.h"

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Viewer::Platform {

/// Pixels in the memory from which the system draws. A bitmap of wxWidgets would be allocated and converted
/// anew by GTK each time its pixels change, which takes longer than to make the pixels.
class PixelCanvas : public PixelRows
{
public:
    /// The pixels are undefined at first. The canvas is invalid if the size is empty or too large, or if
    /// memory has run out.
    explicit PixelCanvas(const wxSize& size);

    PixelCanvas(const PixelCanvas&) = delete;
    PixelCanvas& operator=(const PixelCanvas&) = delete;

    bool isOk() const { return m_pixels != nullptr; }

    /// Draws the canvas with its top left corner at the origin of the DC. `density` is the number of pixels
    /// in each direction for one pixel of the DC.
    void draw(wxDC& dc, int density) const;

private:
    class Pixels;

    /// Returns null if the system refuses.
    static std::shared_ptr<Pixels> makePixels(const wxSize& size);

    static PixelRows rowsOf(const Pixels& pixels, const wxSize& size);

    std::shared_ptr<Pixels> m_pixels;
};

} // namespace Nolvex::Viewer::Platform
