// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/AvailableMemory.h"

#include <windows.h>

#include <limits>

namespace Nolvex::Viewer {

// The page file of these numbers is the physical memory and the swap space together.
std::uint64_t Platform::availableMemory()
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) != 0 ? status.ullAvailPageFile
                                              : std::numeric_limits<std::uint64_t>::max();
}

} // namespace Nolvex::Viewer
