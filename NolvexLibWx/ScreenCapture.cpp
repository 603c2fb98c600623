// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScreenCapture.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/detail/Displays.h"
#include "NolvexLibWx/detail/ScreenRegion.h"
#include "NolvexLibWx/platform/ScreenPixels.h"

namespace Nolvex {

BitmapImpl<Rgb> Wx::getScreenRegionColors(Bucket region)
{
    const Array<Bucket> displays = Detail::displayGeometries();
    return Detail::composeScreenRegion(region, displays, Platform::readScreen);
}

} // namespace Nolvex
