// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"

#include <wx/image.h>

#include <iosfwd>

class wxWindow;

namespace Nolvex {

// Found by GoogleTest when it prints a failed comparison.
void PrintTo(const RgbBytes& colour, std::ostream* out);

} // namespace Nolvex

namespace Nolvex::Tests {

/// What the screen shows of the window's client area now.
wxImage captureClientArea(wxWindow* window);

RgbBytes pixelAt(const wxImage& image, int x, int y);

} // namespace Nolvex::Tests
