// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

namespace Nolvex {

/// How an image file stores a colour component: as 8 or 16 bits of the displayed value, or as a half or
/// single float of the linear value. Each format has a bit of its own, so that Flags<ColorFormat> is a set of
/// formats.
enum class ColorFormat
{
    /// The default of the file format.
    DEFAULT = 0,
    UINT8_RGB = 1,
    UINT16_RGB = 2,
    FLT16_LINEAR_RGB = 4,
    FLT32_LINEAR_RGB = 8,
};

/// The name under which settings store the format, which is the name of its enumerator. An invalid value is a
/// programming error (StopException).
NOLVEXLIB_EXPORT String getColorFormatName(ColorFormat format);

/// The format of that name. Returns nullopt if there is no such format.
NOLVEXLIB_EXPORT Optional<ColorFormat> getColorFormatFromName(StringView name);

} // namespace Nolvex
