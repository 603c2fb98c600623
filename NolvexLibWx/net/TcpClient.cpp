// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpClient.h"

#include "NolvexLibWx/net/LockedSocket.h"
#include "NolvexLibWx/net/ToolkitAddress.h"
#include "NolvexLibWx/platform/ConnectLimit.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <algorithm>
#include <system_error>

namespace Nolvex::Wx::Legacy {

namespace {

// With wxSOCKET_BLOCK the toolkit leaves the socket alone while we do not call it: no event loop looks after
// it, and no wait dispatches events.
constexpr wxSocketFlags CLIENT_FLAGS = wxSOCKET_WAITALL | wxSOCKET_BLOCK;

bool connectWithin(wxSocketClient& client, const SocketAddress& address, std::chrono::seconds time)
{
    {
        Platform::ConnectLimit limit(client, time);
        const bool isConnected = client.Connect(Detail::ToolkitAddress::of(address), true);
        if (limit.hasStruck() || !isConnected)
            return false;
    }
    if (!client.IsOk() || !Platform::isDescriptorUsable(client.GetSocket()))
        return false;
    Platform::prepareStreamSocket(client.GetSocket());
    return true;
}

bool tryConnect(wxSocketClient& client, const SocketAddress& address)
{
    try {
        return connectWithin(client, address, std::chrono::seconds(client.GetTimeout()));
    } catch (const std::system_error&) {
        // The system has no more threads.
        return false;
    }
}

Detail::SocketOwner connectedSocket(const SocketAddress& address, unsigned int timeoutSeconds)
{
    auto* const client = new wxSocketClient(CLIENT_FLAGS);
    Detail::SocketOwner owner(client);
    client->SetTimeout(
        static_cast<long>(std::min<std::int64_t>(timeoutSeconds, Detail::LONGEST_TOOLKIT_TIMEOUT)));
    if (!tryConnect(*client, address))
        owner.reset();
    return owner;
}

} // namespace

TcpClient::TcpClient(const SocketAddress& address, unsigned int timeoutSeconds)
    : TcpSocket(connectedSocket(address, timeoutSeconds))
{}

bool TcpClient::connect(const SocketAddress& address)
{
    // Not the case when the connection was moved here from a socket that was accepted.
    auto* const client = dynamic_cast<wxSocketClient*>(toolkitSocket());
    return isOpen() && client != nullptr && tryConnect(*client, address);
}

} // namespace Nolvex::Wx::Legacy
