// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/image.h>

#include <cstddef>

class WXDLLIMPEXP_FWD_BASE wxInputStream;

namespace Nolvex::Wx {

// These functions decode images with the image handlers of wxWidgets. The structure of the seven formats that
// startup registers handlers for is checked first, so that no data, however damaged, can crash the program or
// make it allocate memory that the data cannot fill.

/// Decodes `size` bytes of an encoded image (PNG, JPEG, ...). Returns an invalid image, silently, for data
/// that cannot be decoded, for null data and for sizes below 1.
NOLVEXLIBWX_EXPORT wxImage convertMemoryToImage(const unsigned* data, int size, wxBitmapType type);

/// Decodes an encoded image from a stream, which may end or fail anywhere. Reads the stream to its end, or to
/// 2 GiB, beyond which the result is invalid.
NOLVEXLIBWX_EXPORT wxImage convertStreamToImage(wxInputStream& stream, wxBitmapType type);

/// Decodes an encoded image to a bitmap of the screen's depth. Built-in artwork is read with
/// wxBITMAP_TYPE_ANY.
NOLVEXLIBWX_EXPORT wxBitmap convertMemoryToBitmap(const unsigned* data, int size, wxBitmapType type);

/// Decodes an image of any known format, or returns the reason for the failure as the rest of a sentence, "it
/// ...". This function is stricter than those above, which accept a JPEG file that was cut off and fill the
/// missing part with grey.
NOLVEXLIBWX_EXPORT Expected<wxImage, String> decodeWholeImage(ArrayView<const std::byte> bytes);

} // namespace Nolvex::Wx
