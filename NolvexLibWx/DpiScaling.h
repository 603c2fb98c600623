// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

namespace Nolvex::Wx {

// Sizes are designed for 96 DPI. These functions scale such design units to pixels by the DPI of the system
// and round as wxWidgets does. Windows and monitors have no scale of their own. On GTK, which scales by
// itself, a pixel is a design unit.

NOLVEXLIBWX_EXPORT int scaleByDpi(int value);

/// Scales both coordinates by the horizontal DPI.
NOLVEXLIBWX_EXPORT Pixel scaleByDpi(Pixel value);

/// Scales both dimensions by the horizontal DPI. A dimension of -1 (wxDefaultCoord) stays -1.
NOLVEXLIBWX_EXPORT wxSize scaleByDpi(wxSize value);

/// Enlarges the bitmap by a whole factor, so that icons stay sharp: not at all at 125 %, to twice its size at
/// 150 %. An invalid bitmap is returned as it is.
NOLVEXLIBWX_EXPORT wxBitmap scaleByDpi(const wxBitmap& bitmap);

} // namespace Nolvex::Wx
