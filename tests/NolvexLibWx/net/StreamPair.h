// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/net/SocketOwner.h"
#include "support/RawSocket.h"

#include <wx/socket.h>

namespace Nolvex::Tests {

/// A connection between a socket of wxWidgets, for the streams, and a raw peer.
struct StreamPair
{
    StreamPair()
    {
        wxIPV4address address;
        address.Hostname("127.0.0.1");
        address.Service(listener.port());
        client->SetTimeout(1);
        client->Connect(address, true);
        peer = listener.accept();
    }

    RawSocket listener = RawSocket::listening();
    wxSocketClient* client = new wxSocketClient(wxSOCKET_WAITALL | wxSOCKET_BLOCK);
    Wx::Legacy::Detail::SocketOwner owner{client};
    RawSocket peer;
};

} // namespace Nolvex::Tests
