// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// True where the program's developers run it: it then says more than its users want to know. Taken from the
/// environment variable NOLVEX_DEVELOPMENT (set, not empty and not "0"), which is read once, by the first
/// question. Callable from every thread.
NOLVEXLIB_EXPORT bool isDevelopmentEnviro();

/// From now on this is the answer, whatever the environment says.
NOLVEXLIB_EXPORT void setDevelopmentEnviro(bool isDevelopment);

} // namespace Nolvex
