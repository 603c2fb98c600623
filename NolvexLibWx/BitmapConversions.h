// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>

namespace Nolvex::Wx {

/// A bitmap of the same size, row 0 on top; an invalid one for an empty image or one the toolkit has no
/// memory for.
///
/// Colours are clamped to 0 to 1 and rounded, ties to even; NaN gives 0. Without alpha the bitmap has 24
/// bits. With alpha it has 32, not premultiplied; alpha times 255 is truncated toward zero, then clamped.
/// (On Windows the toolkit takes such bitmaps for premultiplied ones when it draws them: what is to be drawn
/// with alpha there goes through BitmapConverter.)
NOLVEXLIBWX_EXPORT wxBitmap toWxBitmap(const BitmapImpl<Rgb>& image, bool withAlpha);

/// The bitmap's bytes times 1/255, alpha 1 where it has none. An invalid bitmap gives an empty image. Bitmaps
/// of other depths than 24 and 32 bits give the error "Bitmap has unsupported bit depth.", and so do those
/// the toolkit has no memory to give access to. std::bad_alloc when there is none for the image.
NOLVEXLIBWX_EXPORT Expected<BitmapImpl<Rgb>, String> toRgbBitmap(wxBitmap& bitmap);

} // namespace Nolvex::Wx
