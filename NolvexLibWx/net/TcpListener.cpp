// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpListener.h"

#include "NolvexLibWx/net/detail/Deadline.h"
#include "NolvexLibWx/net/detail/WxAddress.h"
#include "NolvexLibWx/net/detail/WxTimeout.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <algorithm>
#include <chrono>
#include <mutex>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

using std::chrono::milliseconds;

// A wait is cut into waits of this length, between which a `close` of another thread is noticed.
constexpr milliseconds CLOSE_CHECK_PERIOD(50);

// A socket with wxSOCKET_BLOCK, which accepted sockets inherit, has no event loop looking after it, which
// would know nothing of the threads that use the socket; and no wait dispatches events.
constexpr wxSocketFlags LISTENER_FLAGS = wxSOCKET_WAITALL | wxSOCKET_BLOCK;

wxSocketServer& serverOf(const Detail::SocketOwner& socket)
{
    return static_cast<wxSocketServer&>(*socket);
}

Detail::SocketOwner listeningSocket(const SocketAddress& address, unsigned int timeoutSeconds)
{
    Detail::SocketOwner server(new wxSocketServer(Detail::WxAddress::of(address), LISTENER_FLAGS));
    if (!server->IsOk() || !Platform::isDescriptorUsable(server->GetSocket()))
        return {};
    server->SetTimeout(Detail::wxTimeoutOf(timeoutSeconds));
    Platform::prepareListeningSocket(server->GetSocket());
    return server;
}

bool isWaiting(const Detail::SocketOwner& server, milliseconds time)
{
    return Platform::waitForSocket(server->GetSocket(), Platform::SocketReadiness::READABLE, time);
}

} // namespace

TcpListener::TcpListener(const SocketAddress& address, unsigned int timeoutSeconds)
    : m_server(listeningSocket(address, timeoutSeconds))
{}

TcpListener::TcpListener(TcpListener&& other) noexcept : NoncopyableMovable()
{
    swapServer(other);
}

TcpListener& TcpListener::operator=(TcpListener&& other) noexcept
{
    if (this != &other)
        swapServer(other);
    return *this;
}

TcpListener::~TcpListener()
{
    close();
}

void TcpListener::swapServer(TcpListener& other)
{
    const std::lock_guard lock(m_mutex);
    const std::lock_guard serverLock(m_serverMutex);
    std::swap(m_server, other.m_server);
    m_closed = other.m_closed.exchange(m_closed);
}

bool TcpListener::isOpen() const
{
    const std::lock_guard lock(m_serverMutex);
    return m_server != nullptr && m_server->IsOk();
}

Optional<SocketAddress> TcpListener::getLocalAddress() const
{
    const std::lock_guard lock(m_serverMutex);
    wxIPV4address address;
    if (m_server == nullptr || !m_server->GetLocal(address))
        return {};
    return Detail::WxAddress::copied(address);
}

TcpSocket TcpListener::acceptConnection(bool wait)
{
    const std::lock_guard lock(m_mutex);
    if (m_server == nullptr || !waitForConnection(wait))
        return TcpSocket(Detail::SocketOwner());
    return TcpSocket(accept());
}

bool TcpListener::waitForConnection(bool wait) const
{
    const auto time = std::chrono::seconds(wait ? m_server->GetTimeout() : 0);
    const auto end = Wx::Detail::Deadline::afterSilence(time);
    while (!m_closed) {
        const milliseconds left = end.left();
        if (isWaiting(m_server, std::min(left, CLOSE_CHECK_PERIOD)))
            return true;
        if (left <= CLOSE_CHECK_PERIOD)
            return false;
    }
    return false;
}

Detail::SocketOwner TcpListener::accept()
{
    Detail::SocketOwner socket(serverOf(m_server).Accept(false));
    if (socket == nullptr || !Platform::isDescriptorUsable(socket->GetSocket()))
        return {};
    Platform::prepareStreamSocket(socket->GetSocket());
    return socket;
}

void TcpListener::killPendingConnections()
{
    const std::lock_guard lock(m_mutex);
    // Connections that come meanwhile are dropped as well, as long as there is no gap between them.
    while (m_server != nullptr && !m_closed && isWaiting(m_server, milliseconds(0))) {
        if (Detail::SocketOwner(serverOf(m_server).Accept(false)) == nullptr)
            return;
    }
}

void TcpListener::close()
{
    m_closed = true;
    const std::lock_guard lock(m_mutex);
    Detail::SocketOwner server;
    {
        const std::lock_guard serverLock(m_serverMutex);
        server = std::move(m_server);
    }
}

} // namespace Nolvex::Wx::Legacy
