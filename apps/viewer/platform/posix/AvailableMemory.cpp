// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/AvailableMemory.h"

#include <fstream>
#include <limits>
#include <string>

namespace Nolvex::Viewer {

// Linux tells kilobytes, one number in a line.
std::uint64_t Platform::availableMemory()
{
    constexpr std::uint64_t KILOBYTE = 1024;
    std::ifstream numbers("/proc/meminfo");
    std::uint64_t sum = 0;
    bool isKnown = false;
    for (std::string name, rest; numbers >> name; std::getline(numbers, rest)) {
        if (name != "MemAvailable:" && name != "SwapFree:")
            continue;
        std::uint64_t kilobytes = 0;
        if (!(numbers >> kilobytes))
            break;
        sum += kilobytes * KILOBYTE;
        isKnown = isKnown || name == "MemAvailable:";
    }
    return isKnown ? sum : std::numeric_limits<std::uint64_t>::max();
}

} // namespace Nolvex::Viewer
