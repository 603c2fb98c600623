// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <cstddef>

namespace Nolvex::Tests {

/// Memory that begins and ends where the system lets the process touch nothing: reading or writing a byte
/// before or behind the memory ends the process.
class GuardedMemory : private Noncopyable
{
public:
    /// Gets whole pages, at least `size` bytes.
    explicit GuardedMemory(std::size_t size);
    ~GuardedMemory();

    /// Returns a block that begins with the memory.
    std::byte* firstBytes() const { return m_begin; }

    /// Returns a block of `size` bytes that ends with the memory.
    std::byte* lastBytes(std::size_t size) const { return m_begin + m_size - size; }

private:
    std::size_t m_pageSize;
    std::size_t m_size;
    std::byte* m_begin;
};

} // namespace Nolvex::Tests
