// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/EnvironmentVariable.h"

#include <cstdlib>

namespace Nolvex {

String Detail::environmentVariable(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? String::fromUtf8(value) : String();
}

} // namespace Nolvex
