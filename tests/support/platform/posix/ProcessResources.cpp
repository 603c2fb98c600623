// SPDX-License-Identifier: MIT
#include "support/ProcessResources.h"

#include <malloc.h>

#include <filesystem>
#include <iterator>

namespace Nolvex {

std::size_t Tests::privateMemory()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::size_t Tests::heldMemory()
{
    const struct mallinfo2 info = mallinfo2();
    return info.arena + info.hblkhd;
}

std::size_t Tests::openHandles()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(descriptors), end(descriptors)));
}

} // namespace Nolvex
