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

/// How many there are; their values run from 0 on.
inline constexpr int IMAGE_FORMAT_COUNT = 17;

} // namespace Nolvex
