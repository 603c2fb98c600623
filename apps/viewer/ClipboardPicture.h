// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLib/String.h"
#include "apps/viewer/DisplaySettings.h"
#include "apps/viewer/Picture.h"

namespace Nolvex::Viewer {

/// Returns the picture as Wx::setClipboardData takes it: as the settings show it, encoded for display, its
/// rows from the bottom up, so that programs paste at the top what the viewer shows at the top. Pictures on
/// the clipboard have no alpha: transparent pixels show the background. Throws std::bad_alloc.
BitmapImpl<Rgb> clipboardPicture(const Picture& picture, const DisplaySettings& settings,
                                 const RgbBytes& background);

/// Puts the picture on the clipboard. Returns a sentence for the user if that fails. On GTK events are
/// processed meanwhile.
[[nodiscard]] Optional<String> copyToClipboard(const Picture& picture, const DisplaySettings& settings,
                                               const RgbBytes& background);

} // namespace Nolvex::Viewer
