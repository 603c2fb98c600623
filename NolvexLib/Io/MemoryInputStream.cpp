// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/MemoryInputStream.h"

#include <algorithm>

namespace Nolvex::Io {

MemoryInputStream::MemoryInputStream(ArrayView<const std::byte> bytes) : m_bytes(bytes) {}

MemoryInputStream::~MemoryInputStream() = default;

std::int64_t MemoryInputStream::readImpl(void* buffer, std::int64_t count)
{
    const std::int64_t size = std::min(count, static_cast<std::int64_t>(m_bytes.size()));
    std::copy_n(m_bytes.begin(), size, static_cast<std::byte*>(buffer));
    m_bytes = m_bytes.subspan(static_cast<std::size_t>(size));
    return size;
}

bool MemoryInputStream::eofImpl()
{
    return m_bytes.empty();
}

} // namespace Nolvex::Io
