// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"

#include <wx/image.h>

#include <iosfwd>

class wxWindow;

namespace Nolvex {

// GoogleTest calls this function to print a failed comparison.
void PrintTo(const RgbBytes& colour, std::ostream* out);

} // namespace Nolvex

namespace Nolvex::Tests {

/// Captures the window's client area as the screen shows it now.
wxImage captureClientArea(wxWindow* window);

RgbBytes pixelAt(const wxImage& image, int x, int y);

} // namespace Nolvex::Tests
