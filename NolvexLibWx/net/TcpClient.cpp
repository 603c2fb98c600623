// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpClient.h"

#include "NolvexLibWx/net/detail/WxAddress.h"
#include "NolvexLibWx/net/detail/WxTimeout.h"
#include "NolvexLibWx/platform/SocketConnecting.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

// A socket with wxSOCKET_BLOCK is left alone by wxWidgets as long as it is not called: no event loop looks
// after the socket, and no wait dispatches events.
constexpr wxSocketFlags CLIENT_FLAGS = wxSOCKET_WAITALL | wxSOCKET_BLOCK;

// What a connection inside this computer takes on a busy day. Less time than that would reach no peer at all.
constexpr std::chrono::milliseconds MIN_CONNECT_TIME(100);

struct Attempt
{
    // Null if the system gave no descriptor that wxWidgets can wait for.
    Detail::SocketOwner socket;
    bool isConnected = false;
};

// Each attempt has a socket of its own: a socket that was connected before would get another descriptor while
// the attempt may have to be cut.
Attempt attempt(const SocketAddress& address, long timeoutSeconds)
{
    auto* const client = new wxSocketClient(CLIENT_FLAGS);
    Attempt result = {Detail::SocketOwner(client)};
    client->SetTimeout(timeoutSeconds);
    const auto time =
        std::max<std::chrono::milliseconds>(std::chrono::seconds(timeoutSeconds), MIN_CONNECT_TIME);
    result.isConnected = Platform::connectWithin(*client, Detail::WxAddress::of(address), time);
    if (!client->IsOk() || !Platform::isDescriptorUsable(client->GetSocket()))
        return {};
    // Child processes do not inherit the socket, whether it is connected or not.
    Platform::prepareStreamSocket(client->GetSocket());
    return result;
}

Detail::SocketOwner connectedSocket(const SocketAddress& address, unsigned int timeoutSeconds)
{
    if (!address.hasHost())
        return {};
    Attempt result = attempt(address, Detail::wxTimeoutOf(timeoutSeconds));
    return result.isConnected ? std::move(result.socket) : Detail::SocketOwner();
}

} // namespace

TcpClient::TcpClient(const SocketAddress& address, unsigned int timeoutSeconds)
    : TcpSocket(connectedSocket(address, timeoutSeconds))
{}

bool TcpClient::connect(const SocketAddress& address)
{
    // A connection that was moved here from an accepted socket is no wxSocketClient.
    auto* const client = dynamic_cast<wxSocketClient*>(wxSocket());
    if (!isOpen() || client == nullptr || !address.hasHost())
        return false;
    const long timeoutSeconds = client->GetTimeout();
    client->Close();
    Attempt result = attempt(address, timeoutSeconds);
    // Nothing may use the closed socket any more, because the system gives its descriptor to the next file or
    // socket that the program opens.
    if (result.socket == nullptr)
        close();
    else
        replaceSocket(std::move(result.socket));
    return result.isConnected;
}

} // namespace Nolvex::Wx::Legacy
