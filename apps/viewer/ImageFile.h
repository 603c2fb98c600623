// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/FileFilter.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"

namespace Nolvex::Viewer {

/// The filters of the dialogs that open pictures: all pictures, and all files.
Array<Io::FileFilter> readableFilters();

/// Reads a picture from a file, and names it after the file. PNG, JPEG, BMP, GIF (its first frame), TIFF, TGA
/// and ICO give 8-bit images that are encoded for display, Portable Float Maps give float images of linear
/// light. The library must be started. The error is a sentence for the user that names the file.
Expected<SharedPicture, String> readPictureFile(const Io::Path& path);

/// Returns a sentence for the user that tells the name and the size of a picture that has been read.
String openedMessage(const Picture& picture);

} // namespace Nolvex::Viewer
