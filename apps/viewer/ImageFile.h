// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/FileFilter.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/reading/PictureReader.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// The filters of the dialogs that open pictures: all pictures, and all files.
Array<Io::FileFilter> readableFilters();

/// Returns the files, with the pictures inside it in place of each folder: its files with one of the usual
/// extensions, in the order of their names.
Array<Io::Path> withFoldersOpened(const Array<Io::Path>& filesAndFolders);

/// Reads the main layer of a file, by the reader for its content, and names the picture after the file. The
/// error is a sentence for the user that names the file. The library must be started; then any thread may
/// call the function.
Expected<SharedPicture, String> readPictureFile(const Io::Path& path, const ReadingProgress& progress = {});

/// Reads the layer with that name, or the main layer if the file has no such layer any more.
Expected<SharedPicture, String> readPictureFile(const Io::Path& path, const String& layer,
                                                const ReadingProgress& progress);

/// Reads another layer of a picture's file. The error is a sentence for the user that names the picture. Any
/// thread may call the function.
Expected<SharedPicture, String> readOtherLayer(const Picture& picture, std::size_t layer,
                                               const ReadingProgress& progress = {});

/// Returns sentences for the user that tell the name and the size of a picture that has been read, and what
/// the file holds besides.
String openedMessage(const Picture& picture);

} // namespace Nolvex::Viewer
