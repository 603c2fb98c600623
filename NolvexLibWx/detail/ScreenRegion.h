// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/platform/ScreenPixels.h"

#include <functional>

namespace Nolvex::Wx::Detail {

/// Passes on the rows that can be read inside the area, which is not empty. The function is
/// Platform::readScreen, or a test's own source of pixels.
using ReadScreen = std::function<void(const Bucket& area, const Platform::TakeScreenRow& take)>;

/// Does the work of getScreenRegionColors, with these displays and this source of pixels.
NOLVEXLIBWX_EXPORT BitmapImpl<Rgb> composeScreenRegion(const Bucket& region, ArrayView<const Bucket> displays,
                                                       const ReadScreen& read);

} // namespace Nolvex::Wx::Detail
