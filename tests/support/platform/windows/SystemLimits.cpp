// SPDX-License-Identifier: MIT
#include "support/SystemLimits.h"

#include <winsock2.h>

#include <windows.h>

namespace Nolvex::Tests {

ScarceDescriptors::ScarceDescriptors() = default;

ScarceDescriptors::~ScarceDescriptors() = default;

ScarceMemory::ScarceMemory() = default;

ScarceMemory::~ScarceMemory() = default;

std::size_t inheritableSockets()
{
    // Windows gives out handles in multiples of four, starting with the smallest ones.
    constexpr SOCKET MAX_HANDLE = 65536;
    std::size_t count = 0;
    for (SOCKET handle = 4; handle <= MAX_HANDLE; handle += 4) {
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

int whileInterrupted(const std::function<void()>& function)
{
    function();
    return -1;
}

int affordableRounds(int rounds)
{
    // A system call takes about a hundred times longer under Wine.
    return rounds / 8;
}

Io::Path fileOnAFullDisk()
{
    return {};
}

Io::Path unwritableFile(const Io::Path& folder)
{
    const Io::Path path = folder / L"read-only";
    const HANDLE file = CreateFileW(path.native().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_READONLY, nullptr);
    CloseHandle(file);
    const HANDLE again =
        CreateFileW(path.native().c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (again == INVALID_HANDLE_VALUE)
        return path;
    CloseHandle(again);
    return {};
}

Io::Path fileShorterThanItsSize()
{
    return {};
}

Io::Path fileLongerThanItsSize()
{
    return {};
}

} // namespace Nolvex::Tests
