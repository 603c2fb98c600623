// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::Wx {

/// Returns the pixels that the screen shows now inside the region, in the coordinates of wxDisplay. The image
/// has the region's size, row 0 on top. A pixel of a display is its bytes times 1/255, with alpha 1. Pixels
/// outside of every display are transparent black, and so are all pixels if the system does not let programs
/// read the screen. The mouse pointer is not part of the image.
///
/// On Wayland and under XWayland only the desktop can take a picture of the screen, and the desktop may have
/// to ask the user first. This function does not wait for the user: its image is transparent there. Use
/// requestScreenRegion instead.
///
/// Returns an empty image for a region without pixels or with more than MAX_SCREEN_REGION_PIXELS, and if
/// there is not enough memory. Must be called on the GUI thread.
NOLVEXLIBWX_EXPORT BitmapImpl<Rgb> getScreenRegionColors(Bucket region);

/// So many pixels take 2 GiB as an image, and cover four displays of 7680 x 4320.
inline constexpr std::int64_t MAX_SCREEN_REGION_PIXELS = std::int64_t(1) << 27;

} // namespace Nolvex::Wx
