// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// What stands between the whole and the fraction where the user reads and types numbers; L'.' when that
/// cannot be known. On Linux that of the process's locale as it is set when asked (not during a change of the
/// locale), on Windows that of the user's settings.
NOLVEXLIB_EXPORT wchar_t decimalPointCharacter();

} // namespace Nolvex
