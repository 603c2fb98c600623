// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SocketConnecting.h"

namespace Nolvex {

bool Platform::connectWithin(wxSocketClient& client, const wxIPV4address& address,
                             std::chrono::milliseconds time)
{
    if (client.Connect(address, false))
        return true;
    // The attempt goes on unless the system refused it at once.
    if (!client.IsOk() || client.LastError() != wxSOCKET_WOULDBLOCK)
        return false;
    return client.WaitOnConnect(0, static_cast<long>(time.count())) && client.IsConnected();
}

} // namespace Nolvex
