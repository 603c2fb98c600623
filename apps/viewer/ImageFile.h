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

/// Reads a picture from a file, by the reader for its content, and names it after the file. The library must
/// be started. The error is a sentence for the user that names the file.
Expected<SharedPicture, String> readPictureFile(const Io::Path& path);

/// Returns sentences for the user that tell the name and the size of a picture that has been read, and what
/// the file holds besides.
String openedMessage(const Picture& picture);

} // namespace Nolvex::Viewer
