// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

class wxWindow;

namespace Nolvex::Program {

/// Writes what the screen shows of the window to a PNG file. The error, empty for none, is a sentence for the
/// user.
String writeWindowPicture(const wxWindow& window, const Io::Path& file);

} // namespace Nolvex::Program
