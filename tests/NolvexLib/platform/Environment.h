// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

namespace Nolvex::Tests {

/// Changes the environment of this process.
inline void setEnvironmentVariable(const char* name, const char* value)
{
#ifdef _WIN32
    ::_putenv_s(name, value);
#else
    ::setenv(name, value, 1);
#endif
}

} // namespace Nolvex::Tests
