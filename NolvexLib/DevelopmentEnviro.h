// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// True if the program runs for its developers and is to log more than users want to read. The environment
/// variable NOLVEX_DEVELOPMENT switches this on, unless it is empty or "0". The variable is read once, by the
/// first call. Every thread may call this function.
NOLVEXLIB_EXPORT bool isDevelopmentEnviro();

/// Overrides the environment variable.
NOLVEXLIB_EXPORT void setDevelopmentEnviro(bool isDevelopment);

} // namespace Nolvex
