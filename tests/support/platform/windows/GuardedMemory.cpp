// SPDX-License-Identifier: MIT
#include "support/GuardedMemory.h"

#include <windows.h>

#include <new>

namespace Nolvex::Tests {

namespace {

std::size_t pageSize()
{
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    return info.dwPageSize;
}

} // namespace

GuardedMemory::GuardedMemory(std::size_t size)
    : m_pageSize(pageSize()), m_size((size + m_pageSize - 1) / m_pageSize * m_pageSize)
{
    void* const all = VirtualAlloc(nullptr, m_size + 2 * m_pageSize, MEM_RESERVE, PAGE_NOACCESS);
    if (all == nullptr)
        throw std::bad_alloc();
    m_begin = static_cast<std::byte*>(all) + m_pageSize;
    if (VirtualAlloc(m_begin, m_size, MEM_COMMIT, PAGE_READWRITE) == nullptr)
        throw std::bad_alloc();
}

GuardedMemory::~GuardedMemory()
{
    VirtualFree(m_begin - m_pageSize, 0, MEM_RELEASE);
}

} // namespace Nolvex::Tests
