// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/TcpSocket.h"

namespace Nolvex::Wx::Legacy {

/// The end of a connection that asked for it.
class NOLVEXLIBWX_EXPORT TcpClient : public TcpSocket
{
public:
    /// Connects, waiting at most that many seconds, one at least; isOpen tells whether it succeeded.
    TcpClient(const SocketAddress& address, unsigned int timeoutSeconds);

    /// Drops the connection and makes another one, within the seconds given to the constructor. Only an open
    /// client can; one whose constructor failed stays as it is. Not while another thread uses the object.
    [[nodiscard]] bool connect(const SocketAddress& address);

private:
    unsigned int m_timeoutSeconds;
};

} // namespace Nolvex::Wx::Legacy
