// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Platform {

/// The resolution at which a point of a font is 1/72 of an inch and a design unit is a pixel.
inline constexpr double DESIGN_RESOLUTION = 96.0;

/// Returns the pixels per inch by which GTK turns points into pixels. Xft.dpi of the X server and the text
/// scaling of the desktop set this resolution.
double screenResolution();

} // namespace Nolvex::Platform
