// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>
#include <functional>

namespace Nolvex::Wx {

/// What the screen shows now inside the region, in the coordinates of the toolkit's displays: the region's
/// size, row 0 on top. Bytes times 1/255 with alpha 1 where a display is, transparent black elsewhere and
/// where the system lets nobody read the screen. The mouse pointer is not part of it.
///
/// A region without pixels gives an empty image, and so does one of more than MAX_SCREEN_REGION_PIXELS or one
/// that there is no memory for. For the GUI thread.
NOLVEXLIBWX_EXPORT BitmapImpl<Rgb> getScreenRegionColors(Bucket region);

/// As an image 2 GiB: four displays of 7680 x 4320.
inline constexpr std::int64_t MAX_SCREEN_REGION_PIXELS = std::int64_t(1) << 27;

namespace Detail {

/// Takes `count` pixels of a row of the screen, the first of them at `start`: blue, green, red and a byte
/// without meaning each. The bytes may be overwritten.
using TakeScreenRow = std::function<void(Pixel start, std::uint8_t* bgrx, std::int32_t count)>;

/// Hands over what can be read inside the area, which is not empty.
using ReadScreen = std::function<void(const Bucket& area, const TakeScreenRow& take)>;

/// getScreenRegionColors for these displays and this source of pixels.
NOLVEXLIBWX_EXPORT BitmapImpl<Rgb> composeScreenRegion(const Bucket& region, ArrayView<const Bucket> displays,
                                                       const ReadScreen& read);

} // namespace Detail

} // namespace Nolvex::Wx
