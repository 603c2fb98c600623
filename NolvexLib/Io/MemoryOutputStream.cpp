// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/MemoryOutputStream.h"

#include <utility>

namespace Nolvex::Io {

MemoryOutputStream::MemoryOutputStream() : m_target(m_own) {}

MemoryOutputStream::MemoryOutputStream(Array<std::byte>& target, std::size_t reserve) : m_target(target)
{
    m_target.reserve(m_target.size() + reserve);
}

MemoryOutputStream::~MemoryOutputStream() = default;

Array<std::byte> MemoryOutputStream::takeBytes()
{
    return std::exchange(m_target, {});
}

void MemoryOutputStream::writeImpl(const void* buffer, std::int64_t count)
{
    const auto* const bytes = static_cast<const std::byte*>(buffer);
    m_target.insert(m_target.end(), bytes, bytes + count);
}

} // namespace Nolvex::Io
