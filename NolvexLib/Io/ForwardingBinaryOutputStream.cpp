// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/ForwardingBinaryOutputStream.h"

namespace Nolvex::Io {

ForwardingBinaryOutputStream::ForwardingBinaryOutputStream(BinaryOutputStream& target) : m_target(target) {}

ForwardingBinaryOutputStream::~ForwardingBinaryOutputStream() = default;

void ForwardingBinaryOutputStream::flush()
{
    m_target.flush();
}

void ForwardingBinaryOutputStream::writeImpl(const void* buffer, std::int64_t count)
{
    m_target.write(buffer, count);
}

} // namespace Nolvex::Io
