// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ColorFormat.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/ImageFormatFlag.h"
#include "NolvexLib/String.h"

namespace Nolvex {

/// What there is to know about an image file format. The table is in docs/image-formats.md.
struct ImageFormatDescriptor
{
    ImageFormat format;
    /// For users.
    String name;
    String mimeType;
    /// Lower case, without dot; the first one is for files to be written.
    Array<String> extensions;
    Flags<ImageFormatFlag> flags;
    /// Those a file can hold, never empty.
    Flags<ColorFormat> allowedColorFormats;
    /// One of the allowed ones.
    ColorFormat defaultColorFormat;
};

/// Lives as long as the program. A value that is no format is a programming error (StopException).
NOLVEXLIB_EXPORT const ImageFormatDescriptor& getImageFormatDescriptor(ImageFormat format);

} // namespace Nolvex
