// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxDC;
class WXDLLIMPEXP_FWD_CORE wxGraphicsContext;
class WXDLLIMPEXP_FWD_CORE wxWindow;

// GTK can make several pixels of the device from each pixel of wxWidgets (GDK_SCALE, the scale of a Wayland
// output). What is painted here then looks as on a screen of ordinary pixels, only larger, and as sharp. On
// Windows a pixel of wxWidgets is a pixel of the device, and nothing changes.

namespace Nolvex {

/// Moves what is drawn by up to half a pixel while the object lives, such that a line that is one pixel wide
/// covers exactly its pixels. wxWidgets centres such a line on the edges of its pixels if a pixel is an even
/// number of pixels of the device.
class DensePixelOffset
{
public:
    /// Moves what is drawn in the directions that are 1, not in those that are 0. A null context is ignored.
    explicit DensePixelOffset(wxGraphicsContext* context, const wxPoint& directions = {1, 1});
    ~DensePixelOffset();
    DensePixelOffset(const DensePixelOffset&) = delete;
    DensePixelOffset& operator=(const DensePixelOffset&) = delete;

private:
    wxGraphicsContext* m_context;
    wxPoint m_directions;
    double m_offset = 0.0;
};

/// Returns the size that the bitmap takes on the screen, in pixels of wxWidgets. An invalid bitmap has none.
wxSize screenSize(const wxBitmap& bitmap);

/// Returns the number of pixels of the device, in each direction, that the window has for each of its pixels.
int screenDensity(const wxWindow& window);

/// Returns the image as a bitmap that has `density` x `density` pixels for each pixel of wxWidgets.
wxBitmap denseBitmap(const wxImage& image, int density);

/// Draws the bitmap. If the device has more pixels than the bitmap, each pixel becomes a square with sharp
/// edges instead of being blended with its neighbours.
void drawSharp(wxDC& dc, const wxBitmap& bitmap, const wxPoint& position, bool useMask);

} // namespace Nolvex
