// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

namespace Nolvex::Wx {

// From design units (96 DPI) to pixels of the screen by the system's DPI, rounded as the toolkit rounds. One
// factor for everything: neither windows nor monitors have their own. On GTK a pixel is a design unit
// already.

NOLVEXLIBWX_EXPORT int scaleByDpi(int value);

/// Both coordinates by the horizontal DPI.
NOLVEXLIBWX_EXPORT Pixel scaleByDpi(Pixel value);

/// Both dimensions by the horizontal DPI; -1, the toolkit's default, stays -1.
NOLVEXLIBWX_EXPORT wxSize scaleByDpi(wxSize value);

/// Enlarged by a whole factor, what one unit scales to: unchanged at 125 %, doubled at 150 %, so that icons
/// stay sharp. An invalid bitmap comes back as it is.
NOLVEXLIBWX_EXPORT wxBitmap scaleByDpi(const wxBitmap& bitmap);

} // namespace Nolvex::Wx
