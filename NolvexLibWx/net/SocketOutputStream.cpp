// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketOutputStream.h"

#include "NolvexLibWx/net/detail/HostSocket.h"

namespace Nolvex::Wx {

SocketOutputStream::SocketOutputStream(wxSocketBase* socket) : m_socket(socket) {}

SocketOutputStream::~SocketOutputStream() = default;

void SocketOutputStream::flush() {}

void SocketOutputStream::writeImpl(const void* buffer, std::int64_t count)
{
    m_lastWriteCount = m_socket->IsOk() ? Detail::HostSocket(*m_socket).send(buffer, count) : 0;
}

} // namespace Nolvex::Wx
