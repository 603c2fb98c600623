// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Rgb.h"

namespace Nolvex::Program {

/// Whether the screen was read at all: where the system lets nobody read it, every pixel of what was captured
/// is transparent. False of an empty image.
bool wasRead(const BitmapImpl<Rgb>& captured);

} // namespace Nolvex::Program
