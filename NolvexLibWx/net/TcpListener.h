// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Mutex.h"
#include "NolvexLib/NoncopyableMovable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/SocketOwner.h"
#include "NolvexLibWx/net/TcpSocket.h"

#include <atomic>

namespace Nolvex::Wx::Legacy {

/// Waits for connections on an address of this computer, from its construction until `close`.
///
/// What TcpSocket says about initialisation and event loops holds here too. Any thread may call any function
/// but the moves.
class NOLVEXLIBWX_EXPORT TcpListener : private NoncopyableMovable
{
public:
    /// With port 0 the system chooses one, see getLocalAddress. isOpen tells whether it succeeded.
    TcpListener(const SocketAddress& address, unsigned int timeoutSeconds);

    TcpListener(TcpListener&& other) noexcept;

    /// Swaps: what this listened on is closed with the source.
    TcpListener& operator=(TcpListener&& other) noexcept;

    ~TcpListener();

    /// Never waits for a running accept.
    bool isOpen() const;

    /// Where it listens, with the port the system chose; none when it does not.
    Optional<SocketAddress> getLocalAddress() const;

    /// The next connection, in the order they came. Without one the result is not open: at once, or with
    /// `wait` when the seconds given to the constructor are over or another thread calls `close`.
    [[nodiscard]] TcpSocket acceptConnection(bool wait);

    /// Accepts and drops the connections that are waiting.
    void killPendingConnections();

    /// Final. Ends an accept on another thread within 200 ms and waits for that.
    void close();

private:
    bool waitForConnection(bool wait) const;
    Detail::SocketOwner accept();
    void swapServer(TcpListener& other);

    // Held for whole operations.
    Mutex m_mutex;
    // Held for moments only, and the last one to be locked: m_server is changed under both, read under
    // either.
    mutable Mutex m_serverMutex;
    Detail::SocketOwner m_server;
    std::atomic<bool> m_closed = false;
};

} // namespace Nolvex::Wx::Legacy
