// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Rgb.h"

#include <wx/bitmap.h>
#include <wx/colour.h>

namespace Nolvex::Viewer {

/// The bitmap as Wx::setClipboardData takes it, its rows from the bottom up: what the viewer shows at the top
/// is pasted at the top. The clipboard's pictures have no alpha, so what is transparent shows the background.
/// Empty for an invalid bitmap. Throws std::bad_alloc.
BitmapImpl<Rgb> clipboardPicture(const wxBitmap& bitmap, const wxColour& background);

} // namespace Nolvex::Viewer
