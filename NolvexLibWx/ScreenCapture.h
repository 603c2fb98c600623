// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::Wx {

/// The pixels that the screen shows now inside the region, which is in the coordinates of wxDisplay. The
/// image has the region's size, row 0 on top. A pixel of a display is its bytes times 1/255, with alpha 1.
/// Pixels outside of every display are transparent black, and so is all of a screen that the system lets no
/// program read. The mouse pointer is not part of the image.
///
/// The image is empty for a region without pixels or with more than MAX_SCREEN_REGION_PIXELS, and when there
/// is no memory for it. For the GUI thread.
NOLVEXLIBWX_EXPORT BitmapImpl<Rgb> getScreenRegionColors(Bucket region);

/// As an image 2 GiB: four displays of 7680 x 4320.
inline constexpr std::int64_t MAX_SCREEN_REGION_PIXELS = std::int64_t(1) << 27;

} // namespace Nolvex::Wx
