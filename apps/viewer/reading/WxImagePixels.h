// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxImage;

namespace Nolvex::Viewer {

/// Returns the same pixels, 8 bits a channel and encoded for the display, with alpha if the source has alpha.
/// Fails if there is not enough memory; the error is a sentence for the user.
Expected<Image, String> toImage(const wxImage& source);

} // namespace Nolvex::Viewer
