// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx {

/// How a picture goes to the clipboard.
enum class SetClipboardData
{
    /// Should every pixel be grey, one blue byte is changed by one level, so that no receiver takes the
    /// picture for one in shades of grey and reduces it to them.
    AVOID_GRAYSCALE = 2,
};

// Both are for the GUI thread. They return false when the clipboard cannot be had (another program holds it
// open, or the toolkit is not up) or there is no memory. On GTK events may be processed meanwhile: a
// clipboard manager fetches what it is to keep, and one that does not answer is waited for, ten seconds at
// most.

/// The text in place of what the clipboard holds. It stays there after the program has ended, on Linux if a
/// clipboard manager runs.
NOLVEXLIBWX_EXPORT bool setClipboardData(const String& text);

/// The picture in place of what the clipboard holds, 8 bits a channel, without alpha. Its row 0 is what
/// receivers show at the bottom: see DeviceIndependentBitmap. On Windows it goes there as CF_DIB, on Linux as
/// image/bmp and image/png.
///
/// False, with the clipboard left as it was, also for an empty image and for one whose bytes exceed
/// DeviceIndependentBitmap::MAX_FILE_SIZE.
NOLVEXLIBWX_EXPORT bool setClipboardData(const BitmapImpl<Rgb>& image, Flags<SetClipboardData> flags);

} // namespace Nolvex::Wx
