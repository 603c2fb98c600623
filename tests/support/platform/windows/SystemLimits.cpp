// SPDX-License-Identifier: MIT
#include "support/SystemLimits.h"

#include <winsock2.h>

#include <windows.h>

namespace Nolvex::Tests {

ScarceDescriptors::ScarceDescriptors() = default;

ScarceDescriptors::~ScarceDescriptors() = default;

std::size_t inheritableSockets()
{
    // Handles are multiples of four, and the first ones that are free.
    constexpr SOCKET MOST = 65536;
    std::size_t count = 0;
    for (SOCKET handle = 4; handle < MOST; handle += 4) {
        int type = 0;
        int size = sizeof type;
        DWORD flags = 0;
        if (getsockopt(handle, SOL_SOCKET, SO_TYPE, reinterpret_cast<char*>(&type), &size) == 0 &&
            GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != FALSE &&
            (flags & HANDLE_FLAG_INHERIT) != 0)
            ++count;
    }
    return count;
}

void whileInterrupted(const std::function<void()>& function)
{
    function();
}

int affordableRounds(int rounds)
{
    // An emulated system is a hundred times slower.
    return rounds / 8;
}

Io::Path fileOnAFullDisk()
{
    return {};
}

} // namespace Nolvex::Tests
