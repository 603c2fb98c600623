// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"

#include <wx/image.h>

#include <cstddef>

namespace Nolvex::Viewer {

/// Decodes a picture with the toolkit's image handlers, and insists on a whole one: the toolkit's own
/// decoders fill in what is missing at the end of a file and report success. The error is a part of a
/// sentence: "it ...".
Expected<wxImage, String> decodeWholeImage(ArrayView<const std::byte> bytes);

} // namespace Nolvex::Viewer
