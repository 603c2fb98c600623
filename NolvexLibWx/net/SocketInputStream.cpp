// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketInputStream.h"

#include "NolvexLibWx/net/detail/HostSocket.h"

namespace Nolvex::Wx {

SocketInputStream::SocketInputStream(wxSocketBase* socket) : m_socket(socket) {}

SocketInputStream::~SocketInputStream() = default;

std::int64_t SocketInputStream::read(void* buffer, std::int64_t count)
{
    m_requested = 0;
    m_delivered = 0;
    BinaryInputStream::read(buffer, count);
    // The bytes that the socket was not asked for had been put back.
    return count - m_requested + m_delivered;
}

std::int64_t SocketInputStream::readImpl(void* buffer, std::int64_t count)
{
    m_requested = count;
    m_delivered = m_socket->IsOk() ? Detail::HostSocket(*m_socket).receive(buffer, count) : 0;
    m_ok = m_socket->IsOk() && m_delivered == count;
    return m_socket->LastWriteCount();
}

bool SocketInputStream::eofImpl()
{
    return m_ok;
}

} // namespace Nolvex::Wx
