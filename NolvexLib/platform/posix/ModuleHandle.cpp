// SPDX-License-Identifier: MIT
#include "NolvexLib/WinApi/ModuleHandle.h"

#include <dlfcn.h>

namespace Nolvex {

void* WinApi::getModuleHandle(const void* address)
{
    Dl_info info = {};
    return ::dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

} // namespace Nolvex
