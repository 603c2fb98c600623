// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ColorFormat.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/ImageFormatFlag.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

namespace Nolvex {

/// The properties of an image file format. docs/image-formats.md has the table of all formats.
struct ImageFormatDescriptor
{
    ImageFormat format;
    /// The name that users read.
    String name;
    String mimeType;
    /// In lower case and without a dot. New files get the first one.
    Array<String> extensions;
    Flags<ImageFormatFlag> flags;
    /// The colour formats that a file can hold. There is at least one.
    Flags<ColorFormat> allowedColorFormats;
    /// One of the allowed formats.
    ColorFormat defaultColorFormat;
};

/// The descriptor lives as long as the program. An invalid value is a programming error (StopException).
NOLVEXLIB_EXPORT const ImageFormatDescriptor& getImageFormatDescriptor(ImageFormat format);

/// The format that file names with this extension mean. The extension has no dot, and its letters may be
/// large or small. Returns nullopt if no format has the extension.
NOLVEXLIB_EXPORT Optional<ImageFormat> getImageFormatFromExtension(StringView extension);

} // namespace Nolvex
