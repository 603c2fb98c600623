// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// By how much texts are larger than designed; 1 until set. Callable from every thread.
NOLVEXLIB_EXPORT float getFontScale();

/// Takes finite values above 0; another one is refused (false) and changes nothing.
NOLVEXLIB_EXPORT bool setFontScale(float scale);

} // namespace Nolvex
