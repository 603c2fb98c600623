// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Rgb.h"

namespace Nolvex::Program {

/// Returns whether the screen could be read at all. If the system lets no program read the screen, every
/// captured pixel is transparent. An empty image was not read.
bool wasRead(const BitmapImpl<Rgb>& captured);

} // namespace Nolvex::Program
