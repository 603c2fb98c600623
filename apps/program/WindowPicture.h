// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

class wxWindow;

namespace Nolvex::Program {

/// Writes a PNG file of the window's client area as the screen shows it. Returns a sentence for the user if
/// that fails, an empty text if it succeeds.
String writeWindowPicture(const wxWindow& window, const Io::Path& file);

} // namespace Nolvex::Program
