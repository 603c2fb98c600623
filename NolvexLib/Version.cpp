// SPDX-License-Identifier: MIT
#include "NolvexLib/Version.h"

namespace Nolvex {

const char* loadedVersion()
{
    return NOLVEX_VERSION;
}

} // namespace Nolvex
