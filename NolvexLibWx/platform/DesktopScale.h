// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Platform {

/// Returns a length of `units` design units in the pixels of wxWidgets, rounded to the nearest pixel. The
/// factor is the one that the desktop gives to text: the DPI of the system on Windows, the resolution of fonts
/// on GTK, each divided by 96. A length of -1 (wxDefaultCoord) stays -1.
int scaleToDesktop(int units);

} // namespace Nolvex::Platform
