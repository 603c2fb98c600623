// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"

#include <wx/gdicmn.h>

#include <iosfwd>

namespace Nolvex::Viewer {

class FileRows;

/// Writes 8-bit colours in one of the formats of wxWidgets, with alpha if `alpha` is true and the format has
/// alpha there. GIF files get the 256 colours that fit the picture best. Returns the reason for a failure, as
/// the rest of a sentence.
Optional<String> writeByWxImage(std::ostream& stream, const Picture& source, wxBitmapType type, bool alpha);

/// Writes rows of bytes.
Optional<String> writeByWxImage(std::ostream& stream, FileRows& rows, wxBitmapType type);

} // namespace Nolvex::Viewer
