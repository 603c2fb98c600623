// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// The image file formats, see getImageFormatDescriptor.
enum class ImageFormat
{
    BMP,
    PNG,
    JPEG,
    EXR,
    GIF,
    TARGA,
    TIFF,
    RADIANCE,
    CINEON,
    DDS,
    ICO,
    IFF,
    JPEG2000,
    PHOTOSHOP,
    RLA,
    SGI,
    TX,
};

/// The number of formats. Their values start at 0.
inline constexpr int IMAGE_FORMAT_COUNT = 17;

} // namespace Nolvex
