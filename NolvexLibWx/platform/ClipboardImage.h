// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/DeviceIndependentBitmap.h"

namespace Nolvex::Platform {

/// Puts the picture, which is not empty, in place of what the clipboard holds. False when the clipboard
/// cannot be had or there is no memory.
bool setClipboardImage(DeviceIndependentBitmap bitmap);

} // namespace Nolvex::Platform
