// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/Progress.h"

#include <iosfwd>

namespace Nolvex::Viewer {

class FileRows;

/// Writes a TIFF file of integers or floats, compressed by deflate. The alpha of floats is that of the
/// picture, straight or associated; that of integers is straight. The stream must be able to read, too,
/// since libtiff returns to what has been written. Returns the reason for a failure, as the rest of a
/// sentence. If the progress stops the writing, the stream holds a part of the file.
Optional<String> writeTiff(std::iostream& stream, const Picture& picture,
                           const Wx::ImageSaveSettings& settings, const Progress& progress);

/// Writes rows of integers.
Optional<String> writeTiff(std::iostream& stream, FileRows& rows, const Progress& progress);

} // namespace Nolvex::Viewer
