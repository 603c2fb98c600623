// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpListener.h"

#include "NolvexLibWx/net/LockedSocket.h"
#include "NolvexLibWx/net/ToolkitAddress.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <algorithm>
#include <chrono>
#include <mutex>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

using std::chrono::milliseconds;

// How long a wait lasts at most before it looks whether the listener was closed on another thread.
constexpr milliseconds CLOSE_CHECK_PERIOD(50);

// With wxSOCKET_BLOCK, which those accepted inherit, no event loop looks after the sockets, whose other users
// are threads that it knows nothing of; and no wait dispatches events.
constexpr wxSocketFlags LISTENER_FLAGS = wxSOCKET_WAITALL | wxSOCKET_BLOCK;

wxSocketServer& serverOf(const Detail::SocketOwner& socket)
{
    return static_cast<wxSocketServer&>(*socket);
}

Detail::SocketOwner listeningSocket(const SocketAddress& address, unsigned int timeoutSeconds)
{
    Detail::SocketOwner server(new wxSocketServer(Detail::ToolkitAddress::of(address), LISTENER_FLAGS));
    if (!server->IsOk() || !Platform::isDescriptorUsable(server->GetSocket()))
        return {};
    server->SetTimeout(
        static_cast<long>(std::min<std::int64_t>(timeoutSeconds, Detail::LONGEST_TOOLKIT_TIMEOUT)));
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
    return Detail::ToolkitAddress::copied(address);
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
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + std::chrono::seconds(wait ? m_server->GetTimeout() : 0);
    while (!m_closed) {
        const auto left = std::max(std::chrono::ceil<milliseconds>(end - Clock::now()), milliseconds(0));
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
    // One that came while the others were dropped is dropped as well, as long as there is no gap.
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
