// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx {

/// Options of putting a picture on the clipboard.
enum class SetClipboardData
{
    /// Changes one blue byte by one level if every pixel is grey. Some programs reduce a grey picture to
    /// shades of grey when they paste it; the changed byte keeps them from it.
    AVOID_GRAYSCALE = 2,
};

// Both functions are for the GUI thread. They return false if another program holds the clipboard open, if
// the library is not started, or if there is no memory. On GTK events are processed while a clipboard manager
// fetches the data; the functions wait up to ten seconds for a manager that does not answer.

/// Replaces the contents of the clipboard by a text. The text remains there after the program has ended, on
/// Linux if a clipboard manager runs.
NOLVEXLIBWX_EXPORT bool setClipboardData(const String& text);

/// Replaces the contents of the clipboard by a picture with 8 bits a channel and without alpha. Programs show
/// its row 0 at the bottom: see DeviceIndependentBitmap. The format is CF_DIB on Windows, image/bmp and
/// image/png on Linux.
///
/// Returns false, too, for an empty image and for one that exceeds DeviceIndependentBitmap::MAX_FILE_SIZE,
/// and leaves the clipboard as it was.
NOLVEXLIBWX_EXPORT bool setClipboardData(const BitmapImpl<Rgb>& image, Flags<SetClipboardData> flags);

} // namespace Nolvex::Wx
