// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// The layout of a pixel in memory: the number format of a channel, in the byte order of the machine, and the
/// channels in the order of the name. FLOAT16 is the half-precision format of IEEE 754.
enum class PixelFormat
{
    UINT8_GREY,
    UINT8_RGB,
    UINT8_RGBA,
    UINT16_GREY,
    UINT16_RGB,
    UINT16_RGBA,
    FLOAT16_GREY,
    FLOAT16_RGB,
    FLOAT16_RGBA,
    FLOAT32_GREY,
    FLOAT32_RGB,
    FLOAT32_RGBA,
};

/// The number of formats. Their values start at 0.
inline constexpr int PIXEL_FORMAT_COUNT = 12;

} // namespace Nolvex
