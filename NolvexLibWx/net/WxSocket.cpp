// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/WxSocket.h"

#include "NolvexLibWx/net/ReceiveLimits.h"
#include "NolvexLibWx/net/detail/HostSocket.h"

#include <new>
#include <string>

namespace Nolvex::Wx::Legacy {

namespace {

// Returns false if nothing can be transferred.
bool prepareTransfer(wxSocketBase& socket, int timeoutSeconds)
{
    if (!socket.IsOk() || socket.IsClosed())
        return false;
    if (timeoutSeconds != socket.GetTimeout())
        socket.SetTimeout(timeoutSeconds);
    return true;
}

} // namespace

WxSocket::WxSocket(wxSocketBase* socket) : m_socket(socket)
{
    m_socket->SetFlags(wxSOCKET_WAITALL);
}

void WxSocket::close()
{
    if (m_socket != nullptr)
        m_socket->Destroy();
    m_socket = nullptr;
}

SocketResult WxSocket::writeString(wxSocketBase* socket, const String& text, int timeoutSeconds)
try {
    if (!prepareTransfer(*socket, timeoutSeconds))
        return SocketResult::Error;
    const std::string bytes = text.toUtf8();
    const auto size = static_cast<std::int64_t>(bytes.size() + 1);
    const std::int64_t sent = Wx::Detail::HostSocket(*socket).send(bytes.c_str(), size);
    return socket->IsOk() && sent == size ? SocketResult::Success : SocketResult::Error;

} catch (const std::bad_alloc&) {
    return SocketResult::Error;
}

SocketResult WxSocket::readString(wxSocketBase* socket, String& out, int timeoutSeconds)
try {
    if (!prepareTransfer(*socket, timeoutSeconds))
        return SocketResult::Error;
    std::string bytes;
    if (!Wx::Detail::HostSocket(*socket).receiveText(bytes, DEFAULT_HEADER_SIZE_LIMIT))
        return SocketResult::Error;
    out = String::fromUtf8(bytes);
    return SocketResult::Success;

} catch (const std::bad_alloc&) {
    return SocketResult::Error;
}

} // namespace Nolvex::Wx::Legacy
