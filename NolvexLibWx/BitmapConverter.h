// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/image.h>

namespace Nolvex {

class Image;

/// Converts images of the image library to those of wxWidgets.
class NOLVEXLIBWX_EXPORT BitmapConverter
{
public:
    BitmapConverter() = delete;

    /// Returns the image as it is shown. Unless its gamma is 1, every channel, alpha included, is raised to
    /// 1 / gamma; then it is clamped to 0 to 1 and rounded to bytes, ties to even (NaN gives 0). A format of
    /// four channels gives an image with alpha. The first row of the image is its bottom row and becomes the
    /// last. The result is invalid for an image of more than 2^31 - 1 bytes of colour, which a wxImage cannot
    /// hold.
    static wxImage zephraImageToWxImage(const Image& image);

    /// Returns the same as a bitmap of the screen's depth.
    static wxBitmap zephraImageToWxBitmap(const Image& image);
};

} // namespace Nolvex
