// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpClient.h"

#include "NolvexLibWx/net/LockedSocket.h"
#include "NolvexLibWx/net/ToolkitAddress.h"
#include "NolvexLibWx/platform/ConnectLimit.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <system_error>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

// With wxSOCKET_BLOCK the toolkit leaves the socket alone while we do not call it: no event loop looks after
// it, and no wait dispatches events.
constexpr wxSocketFlags CLIENT_FLAGS = wxSOCKET_WAITALL | wxSOCKET_BLOCK;

// Whether it succeeds or not, child processes do not inherit the socket afterwards.
bool connectWithin(wxSocketClient& client, const SocketAddress& address, std::chrono::seconds time)
{
    bool isConnected = false;
    {
        Platform::ConnectLimit limit(client, time);
        isConnected = client.Connect(Detail::ToolkitAddress::of(address), true);
        if (limit.hasStruck())
            isConnected = false;
    }
    if (!client.IsOk() || !Platform::isDescriptorUsable(client.GetSocket()))
        return false;
    Platform::prepareStreamSocket(client.GetSocket());
    return isConnected;
}

struct Attempt
{
    Detail::SocketOwner socket;
    bool isConnected;
};

// With a socket of its own each time: while one that was connected before is connected again, nobody else may
// look at its descriptor, not even to end the attempt.
Attempt attempt(const SocketAddress& address, unsigned int timeoutSeconds)
{
    auto* const client = new wxSocketClient(CLIENT_FLAGS);
    Detail::SocketOwner owner(client);
    const auto seconds = std::clamp<std::int64_t>(timeoutSeconds, 1, Detail::LONGEST_TOOLKIT_TIMEOUT);
    client->SetTimeout(static_cast<long>(seconds));
    try {
        const bool isConnected = connectWithin(*client, address, std::chrono::seconds(seconds));
        return {std::move(owner), isConnected};
    } catch (const std::system_error&) {
        // The system has no more threads.
        return {std::move(owner), false};
    }
}

Detail::SocketOwner connectedSocket(const SocketAddress& address, unsigned int timeoutSeconds)
{
    Attempt result = attempt(address, timeoutSeconds);
    return result.isConnected ? std::move(result.socket) : Detail::SocketOwner();
}

} // namespace

TcpClient::TcpClient(const SocketAddress& address, unsigned int timeoutSeconds)
    : TcpSocket(connectedSocket(address, timeoutSeconds)), m_timeoutSeconds(timeoutSeconds)
{}

bool TcpClient::connect(const SocketAddress& address)
{
    // Not the case when the connection was moved here from a socket that was accepted.
    auto* const client = dynamic_cast<wxSocketClient*>(toolkitSocket());
    if (!isOpen() || client == nullptr)
        return false;
    client->Close();
    Attempt result = attempt(address, m_timeoutSeconds);
    if (result.socket->IsOk())
        replaceSocket(std::move(result.socket));
    return result.isConnected;
}

} // namespace Nolvex::Wx::Legacy
