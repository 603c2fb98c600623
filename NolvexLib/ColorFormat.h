// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

namespace Nolvex {

/// How an image file keeps a colour component: 8 or 16 bits of the displayed value, or half or single floats
/// of the linear one. A bit each, so that Flags<ColorFormat> is a set of them.
enum class ColorFormat
{
    /// Whatever the file format's own default is.
    DEFAULT = 0,
    UINT8_RGB = 1,
    UINT16_RGB = 2,
    FLT16_LINEAR_RGB = 4,
    FLT32_LINEAR_RGB = 8,
};

/// The name it is saved under: that of the enumerator. A value that is none is a programming error
/// (StopException).
NOLVEXLIB_EXPORT String getColorFormatName(ColorFormat format);

/// The other way round; none for a text that is no such name.
NOLVEXLIB_EXPORT Optional<ColorFormat> getColorFormatFromName(StringView name);

} // namespace Nolvex
