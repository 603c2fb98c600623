// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

namespace Nolvex::Wx {

// Sizes are designed for 96 DPI. These functions scale such design units to the pixels of wxWidgets by the
// DPI of the system and round to the nearest pixel. Windows and monitors have no scale of their own.
//
// On GTK the DPI is the resolution of fonts, which Xft.dpi and the text scaling of the desktop set. The whole
// factors by which GTK scales windows (GDK_SCALE, the scale of a Wayland output) come on top: GTK makes
// several pixels of the device from each pixel of wxWidgets by itself.

NOLVEXLIBWX_EXPORT int scaleByDpi(int value);

/// Scales both coordinates by the horizontal DPI.
NOLVEXLIBWX_EXPORT Pixel scaleByDpi(Pixel value);

/// Scales both dimensions by the horizontal DPI. A dimension of -1 (wxDefaultCoord) stays -1.
NOLVEXLIBWX_EXPORT wxSize scaleByDpi(wxSize value);

/// Enlarges the bitmap by a whole factor, so that icons stay sharp: not at all at 125 %, to twice its size at
/// 150 %. An invalid bitmap is returned as it is.
NOLVEXLIBWX_EXPORT wxBitmap scaleByDpi(const wxBitmap& bitmap);

} // namespace Nolvex::Wx
