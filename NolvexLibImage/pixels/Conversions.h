// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Export.h"
#include "NolvexLibImage/PixelFormat.h"

#include "NolvexLib/Rgb.h"

#include <cstddef>
#include <cstdint>

/// Conversions of rows of pixels between floats and bytes. Each function converts `count` pixels, which may
/// be 0. Source and destination may begin at any address, but must not overlap. Any number of threads may
/// call the functions.
///
/// The colour rule makes a byte of a float: max(0, min(1, v)) * 255 in single precision, rounded to the
/// nearest integer and half to even; NaN gives 0. The alpha rule is used only where it is mentioned: a * 255,
/// truncated towards zero and clamped to 0 to 255; NaN gives 0. A byte becomes a float by multiplication with
/// the single-precision 1/255 (bits 3B808081). Alpha is 1 if the source has none.
namespace Nolvex::Pixels {

/// These write colours by the colour rule and alpha by the alpha rule, in the order of the bytes in the name.
NOLVEXLIBIMAGE_EXPORT void rgbToRgb8(const Rgb* source, std::uint8_t* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgbToBgr8(const Rgb* source, std::uint8_t* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgbToRgba8(const Rgb* source, std::uint8_t* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgbToBgra8(const Rgb* source, std::uint8_t* destination, std::size_t count);

/// Writes the colours to one plane with three bytes for each pixel, and alpha to another plane with one byte
/// for each pixel. The colour rule applies to alpha too.
NOLVEXLIBIMAGE_EXPORT void rgbToRgb8Alpha8(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha,
                                           std::size_t count);

NOLVEXLIBIMAGE_EXPORT void rgb8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void bgr8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void rgba8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);
NOLVEXLIBIMAGE_EXPORT void bgra8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count);

/// Converts from any format of an image. 16-bit integers are multiplied by the single-precision 1/65535 (bits
/// 37800080). Halves and floats keep their values, NaN included, but a signalling NaN in a half becomes a
/// quiet NaN. Grey gives r = g = b. An invalid format is a programming error (StopException).
NOLVEXLIBIMAGE_EXPORT void toRgb(PixelFormat format, const std::byte* source, Rgb* destination,
                                 std::size_t count);

} // namespace Nolvex::Pixels
