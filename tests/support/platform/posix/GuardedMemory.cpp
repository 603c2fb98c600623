// SPDX-License-Identifier: MIT
#include "support/GuardedMemory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <new>

namespace Nolvex::Tests {

GuardedMemory::GuardedMemory(std::size_t size)
    : m_pageSize(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
      m_size((size + m_pageSize - 1) / m_pageSize * m_pageSize)
{
    void* const all = mmap(nullptr, m_size + 2 * m_pageSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (all == MAP_FAILED)
        throw std::bad_alloc();
    m_begin = static_cast<std::byte*>(all) + m_pageSize;
    if (mprotect(m_begin, m_size, PROT_READ | PROT_WRITE) != 0)
        throw std::bad_alloc();
}

GuardedMemory::~GuardedMemory()
{
    munmap(m_begin - m_pageSize, m_size + 2 * m_pageSize);
}

} // namespace Nolvex::Tests
