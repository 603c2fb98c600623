// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/TcpSocket.h"

namespace Nolvex::Wx::Legacy {

/// The end of a connection that asked for it.
class NOLVEXLIBWX_EXPORT TcpClient : public TcpSocket
{
public:
    /// Connects within that many seconds; isOpen tells whether this succeeded. With 0 seconds only a peer
    /// that answers within 100 ms is reached. An address without a host (SocketAddress::hasHost) is never
    /// connected to.
    TcpClient(const SocketAddress& address, unsigned int timeoutSeconds);

    /// Drops the connection and makes another one. That may take as long as the constructor's time or, after
    /// the first message, as long as its last step waited for a silent peer: 1 second after a text or a
    /// received file, 5 after received raw data, the seconds of the time limit (or 120 and 3600) after a
    /// body that was sent. Only an open client can connect again; a client whose constructor failed stays as
    /// it is. An address without a host is refused, and the connection stays. After any other failure the
    /// caller may try again as long as the client is open; the client is closed if the system had no thread
    /// or no usable descriptor for another socket. No other thread may use the object meanwhile.
    [[nodiscard]] bool connect(const SocketAddress& address);
};

} // namespace Nolvex::Wx::Legacy
