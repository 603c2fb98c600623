// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/DeviceIndependentBitmap.h"

namespace Nolvex::Platform {

/// Replaces the contents of the clipboard by the bitmap, which is not empty. Returns false if another program
/// holds the clipboard or there is no memory.
bool setClipboardImage(DeviceIndependentBitmap bitmap);

} // namespace Nolvex::Platform
