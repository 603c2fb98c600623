// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// The character between the whole and the fraction of the numbers that the user reads and types, or L'.' if
/// it cannot be found out. On Linux the current locale of the process decides, on Windows the user's settings
/// do. No other thread may change the locale during the call.
NOLVEXLIB_EXPORT wchar_t decimalPointCharacter();

} // namespace Nolvex
