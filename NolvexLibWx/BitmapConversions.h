// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>

namespace Nolvex::Wx {

/// Returns a bitmap of the same size, row 0 on top. The bitmap is invalid for an empty image, or if there is
/// no memory for it.
///
/// Colours are clamped to 0 to 1, times 255, rounded, ties to even; NaN gives 0. Without alpha the bitmap has
/// 24 bits. With alpha it has 32 bits, and its colours are not premultiplied; alpha times 255 is truncated
/// toward zero, then clamped. (When wxWidgets draws such a bitmap on Windows it takes the colours for
/// premultiplied ones. Images that are to be drawn there with alpha go through BitmapConverter.)
NOLVEXLIBWX_EXPORT wxBitmap toWxBitmap(const BitmapImpl<Rgb>& image, bool withAlpha);

/// Returns the bitmap's bytes times 1/255, with alpha 1 if the bitmap has no alpha. An invalid bitmap gives
/// an empty image. A depth other than 24 or 32 bits gives the error "Bitmap has unsupported bit depth.", and
/// so does a bitmap whose pixels wxWidgets cannot give access to for lack of memory. Throws std::bad_alloc if
/// there is no memory for the image.
NOLVEXLIBWX_EXPORT Expected<BitmapImpl<Rgb>, String> toRgbBitmap(wxBitmap& bitmap);

} // namespace Nolvex::Wx
