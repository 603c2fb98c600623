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

/// Listens on an address of this computer, from its construction until `close`.
///
/// What TcpSocket says about initialisation and event loops holds here too. Any thread may call any function
/// but the moves.
class NOLVEXLIBWX_EXPORT TcpListener : private NoncopyableMovable
{
public:
    /// With port 0 the system chooses a port, see getLocalAddress. isOpen tells whether listening began.
    TcpListener(const SocketAddress& address, unsigned int timeoutSeconds);

    TcpListener(TcpListener&& other) noexcept;

    /// Swaps: the address that this object listened on is given up with the source.
    TcpListener& operator=(TcpListener&& other) noexcept;

    ~TcpListener();

    /// Never waits for a running accept.
    bool isOpen() const;

    /// The address with the port that the system chose; nullopt if this object does not listen.
    Optional<SocketAddress> getLocalAddress() const;

    /// Returns the next connection, in the order in which they came. If there is none, the result is not open
    /// and returned at once, or with `wait` after the constructor's seconds or when another thread calls
    /// `close`.
    [[nodiscard]] TcpSocket acceptConnection(bool wait);

    /// Accepts and drops the connections that are waiting.
    void killPendingConnections();

    /// Final. Ends an accept on another thread within 200 ms and waits for its end.
    void close();

private:
    bool waitForConnection(bool wait) const;
    Detail::SocketOwner accept();
    void swapServer(TcpListener& other);

    // Held for whole operations.
    Mutex m_mutex;
    // Held for moments only, and always locked last: m_server is changed under both locks and read under
    // either of them.
    mutable Mutex m_serverMutex;
    Detail::SocketOwner m_server;
    std::atomic<bool> m_closed = false;
};

} // namespace Nolvex::Wx::Legacy
