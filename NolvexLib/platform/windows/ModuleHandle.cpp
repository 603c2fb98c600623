// SPDX-License-Identifier: MIT
#include "NolvexLib/WinApi/ModuleHandle.h"

#include <windows.h>

namespace Nolvex {

void* WinApi::getModuleHandle(const void* address)
{
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    // Windows takes null for the program itself.
    if (address == nullptr || !::GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &module))
        return nullptr;
    return module;
}

} // namespace Nolvex
