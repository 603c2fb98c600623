// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/image.h>

class WXDLLIMPEXP_FWD_BASE wxInputStream;

namespace Nolvex::Wx {

/// Decodes `size` bytes of an encoded image (PNG, JPEG, ...) with the toolkit's image handlers. Silent: what
/// cannot be decoded, null data and sizes below 1 included, gives an invalid image.
NOLVEXLIBWX_EXPORT wxImage convertMemoryToImage(const unsigned* data, int size, wxBitmapType type);

/// The same from a stream, which may end or fail anywhere.
NOLVEXLIBWX_EXPORT wxImage convertStreamToImage(wxInputStream& stream, wxBitmapType type);

/// From memory, as a bitmap of the screen's depth. Built-in artwork is read with wxBITMAP_TYPE_ANY.
NOLVEXLIBWX_EXPORT wxBitmap convertMemoryToBitmap(const unsigned* data, int size, wxBitmapType type);

} // namespace Nolvex::Wx
