// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"

class wxWindow;

namespace Nolvex::Program {

/// Returns the window's client area as the screen shows the area. The result is empty if the screen cannot be
/// read.
BitmapImpl<Rgb> captureWindow(const wxWindow& window);

/// Writes a PNG file of the window's client area as the screen shows it. Returns a sentence for the user if
/// that fails, an empty text if it succeeds.
String writeWindowPicture(const wxWindow& window, const Io::Path& file);

} // namespace Nolvex::Program
