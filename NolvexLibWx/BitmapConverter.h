// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/image.h>

namespace Nolvex {

class Image;

/// From the image library's pictures to the toolkit's.
class NOLVEXLIBWX_EXPORT BitmapConverter
{
public:
    BitmapConverter() = delete;

    /// The picture as it is shown: unless the image's gamma is 1, every channel, alpha included, is raised to
    /// 1 / gamma; then it is clamped to 0 to 1 and rounded to bytes, ties to even (NaN gives 0). A format of
    /// four channels gives an image with alpha. The image's bottom row, its first, becomes the last. An image
    /// too large for the toolkit's (over 2^31 - 1 bytes of colour) gives an invalid one.
    static wxImage zephraImageToWxImage(const Image& image);

    /// The same as a bitmap of the screen's depth.
    static wxBitmap zephraImageToWxBitmap(const Image& image);
};

} // namespace Nolvex
