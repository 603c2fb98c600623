// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/ForwardingBinaryInputStream.h"

namespace Nolvex::Io {

ForwardingBinaryInputStream::ForwardingBinaryInputStream(BinaryInputStream& source) : m_source(source) {}

ForwardingBinaryInputStream::~ForwardingBinaryInputStream() = default;

void ForwardingBinaryInputStream::putBack(std::byte byte)
{
    m_source.putBack(byte);
}

std::int64_t ForwardingBinaryInputStream::readImpl(void* buffer, std::int64_t count)
{
    return m_source.read(buffer, count);
}

bool ForwardingBinaryInputStream::eofImpl()
{
    return m_source.eof();
}

} // namespace Nolvex::Io
