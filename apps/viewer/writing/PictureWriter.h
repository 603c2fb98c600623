// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Io/FileFilter.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/Progress.h"

namespace Nolvex::Viewer {

class FileRows;

/// The formats that writePictureFile writes, the usual one first.
const Array<ImageFormat>& writableFormats();

/// The writable formats that hold 8-bit colours, which are all that writeRowsFile writes.
const Array<ImageFormat>& writableByteFormats();

/// Returns one filter for each of the formats.
Array<Io::FileFilter> filtersOf(const Array<ImageFormat>& formats);

/// Returns the format that the extension of the file's name stands for, or nullopt if it is none of the
/// writable formats.
Optional<ImageFormat> writableFormatOf(const Io::Path& file);

/// True if files of the format, as the viewer writes them, can hold alpha.
bool writesAlpha(ImageFormat format);

/// Writes the picture to a file, whole or not at all: the picture is written to a new file in the same
/// folder, which then takes the place of the old file, or is removed after a failure. The library must be
/// started. Every thread may call this function. Returns a sentence for the user that names the file and the
/// reason for the failure, or nullopt for success. If the progress stops the writing, the old file stays,
/// too, and the result is an empty text.
[[nodiscard]] Optional<String> writePictureFile(const Io::Path& file, const Picture& picture,
                                                ImageFormat format, const Wx::ImageSaveSettings& settings,
                                                const Progress& progress);

/// Writes rows of bytes to a file in the same way. The rows are asked for as they are written, from the top
/// to the bottom, by formats whose library takes single rows: PNG and TIFF.
[[nodiscard]] Optional<String> writeRowsFile(const Io::Path& file, FileRows& rows, ImageFormat format,
                                             const Progress& progress);

} // namespace Nolvex::Viewer
