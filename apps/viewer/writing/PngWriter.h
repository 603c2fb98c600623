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

/// Writes a PNG file of 8 or, for UINT16_RGB, 16 bits for each channel. Returns the reason for a failure, as
/// the rest of a sentence. If the progress stops the writing, the stream holds a part of the file.
Optional<String> writePng(std::ostream& stream, const Picture& picture, const Wx::ImageSaveSettings& settings,
                          const Progress& progress);

/// Writes rows that are bytes or words.
Optional<String> writePng(std::ostream& stream, FileRows& rows, const Progress& progress);

} // namespace Nolvex::Viewer
