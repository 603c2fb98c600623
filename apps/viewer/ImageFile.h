// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"

#include <wx/bitmap.h>

namespace Nolvex::Viewer {

/// Reads a picture: PNG, JPEG, BMP, GIF (its first frame), TIFF, TGA and ICO through the toolkit as 8-bit
/// images that are encoded for display, Portable Float Maps as linear float images. The library must be
/// started. The error is a sentence for the user that names the file.
Expected<Image, String> readImageFile(const Io::Path& path);

/// The same picture as it is shown.
Expected<wxBitmap, String> readBitmapFile(const Io::Path& path);

} // namespace Nolvex::Viewer
