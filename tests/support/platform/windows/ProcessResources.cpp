// SPDX-License-Identifier: MIT
#include "support/ProcessResources.h"

#include <windows.h>

#include <psapi.h>

namespace Nolvex {

std::size_t Tests::privateMemory()
{
    PROCESS_MEMORY_COUNTERS_EX counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    return counters.PrivateUsage;
}

std::size_t Tests::heldMemory()
{
    return privateMemory();
}

std::size_t Tests::openHandles()
{
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

} // namespace Nolvex
