// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Export.h"
#include "NolvexLibImage/PixelFormat.h"

#include "NolvexLib/Rgb.h"

#include <cstddef>
#include <cstdint>

/// Rows of pixels, converted between floats and bytes. All functions convert `count` pixels, also none;
/// source and destination may begin at any address but may not overlap. Any number of threads may call them.
///
/// Colour to byte: max(0, min(1, v)) * 255 in single precision, rounded to the nearest integer, ties to the
/// even one; NaN gives 0. Alpha to byte, where said: a * 255 truncated towards zero and clamped to 0 to 255;
/// NaN gives 0. Byte to float: times the single-precision 1/255 (bits 3B808081); where the source has no
/// alpha, alpha is 1.
namespace Nolvex::Pixels {

/// The functions named 8 write the colour by the colour rule, byte by byte in the order of their name, and
/// alpha, where there is one, by the alpha rule.
NOLVEXLIBIMAGE_EXPORT void rgbToRgb8(const Rgb* source, std::uint8_t* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgbToBgr8(const Rgb* source, std::uint8_t* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgbToRgba8(const Rgb* source, std::uint8_t* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgbToBgra8(const Rgb* source, std::uint8_t* destination, std::size_t count);

/// The colours go to one plane, three bytes a pixel, alpha to another, one byte a pixel: all of them by the
/// colour rule.
NOLVEXLIBIMAGE_EXPORT void rgbToRgb8Alpha8(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha,
                                           std::size_t count);

NOLVEXLIBIMAGE_EXPORT void rgb8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void bgr8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgba8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void bgra8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);

/// From any format of an image. 16-bit integers are multiplied by the single-precision 1/65535 (bits
/// 37800080); halves and floats keep their value, NaN included (a signalling NaN in a half becomes a quiet
/// one). Grey gives r = g = b. An invalid format is a programming error (StopException).
NOLVEXLIBIMAGE_EXPORT void toRgb(PixelFormat format, const std::byte* source, Rgb* destination,
                                 std::size_t count);

} // namespace Nolvex::Pixels
