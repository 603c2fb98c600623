// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/BinaryInputStream.h"

#include "NolvexLib/StopException.h"

#include <algorithm>

namespace Nolvex::Io {

BinaryInputStream::BinaryInputStream() = default;
BinaryInputStream::~BinaryInputStream() = default;

void BinaryInputStream::putBack(std::byte byte)
{
    m_putBack.push_back(byte);
}

std::int64_t BinaryInputStream::copyPutBack(void* buffer, std::int64_t count) const
{
    const std::int64_t copied = std::min(count, static_cast<std::int64_t>(m_putBack.size()));
    std::copy_n(m_putBack.rbegin(), copied, static_cast<std::byte*>(buffer));
    return copied;
}

std::int64_t BinaryInputStream::read(void* buffer, std::int64_t count)
{
    if (count < 0)
        Detail::throwStopException("Io/BinaryInputStream", __LINE__);
    const std::int64_t copied = copyPutBack(buffer, count);
    const std::int64_t rest = count - copied;
    std::int64_t fresh = 0;
    if (rest > 0)
        fresh = std::clamp<std::int64_t>(readImpl(static_cast<std::byte*>(buffer) + copied, rest), 0, rest);
    m_putBack.resize(m_putBack.size() - static_cast<std::size_t>(copied));
    return copied + fresh;
}

bool BinaryInputStream::readExactly(void* buffer, std::int64_t count)
{
    auto* const bytes = static_cast<std::byte*>(buffer);
    std::int64_t done = 0;
    do {
        const std::int64_t piece = read(bytes + done, count - done);
        if (piece == 0)
            return done == count;
        done += piece;
    } while (done < count);
    return true;
}

bool BinaryInputStream::eof()
{
    return m_putBack.empty() && eofImpl();
}

} // namespace Nolvex::Io
