// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/Pixel.h"

#include <wx/gdicmn.h>

namespace Nolvex::Viewer {

// Rectangles of pixels that a user selects in an image of some size. Each has at least one pixel and lies
// within the image.

/// Returns the rectangle with two pixels as its opposite corners. Pixels beside the image stand for the
/// nearest ones inside.
wxRect rectOfCorners(const Pixel& one, const Pixel& other, const Pixel& imageSize);

/// Returns the part of the rectangle that lies within the image, or nullopt if there is none.
Optional<wxRect> withinImage(const wxRect& rect, const Pixel& imageSize);

/// Moves the right and the bottom edge as far as the image and the opposite edges allow.
wxRect grown(const wxRect& rect, const Pixel& distance, const Pixel& imageSize);

/// Moves the rectangle as far as the image allows.
wxRect moved(const wxRect& rect, const Pixel& distance, const Pixel& imageSize);

} // namespace Nolvex::Viewer
