// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/socket.h>

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Platform {

// The system's side of the toolkit's sockets. All functions take descriptors of open sockets.

enum class SocketReadiness
{
    READABLE,
    WRITABLE,
};

/// Waits until the socket can be read from (or accepted from) or written to, also when all there is to learn
/// is that the connection ended. False when the time, 0 for a mere look, is over. Signals are no reason to
/// return.
bool waitForSocket(wxSOCKET_T descriptor, SocketReadiness readiness, std::chrono::milliseconds time);

/// Copies the bytes that wait, at most `size`, and leaves them in the socket; returns how many. 0 when the
/// connection ended or an empty datagram waits, -1 on failure and when there is nothing.
std::int64_t peekSocket(wxSOCKET_T descriptor, void* buffer, std::size_t size);

/// Sends what the system takes at once and returns how much that was, 0 when it takes nothing now; -1 when
/// the connection has ended. For sockets that were prepared.
std::int64_t sendAtOnce(wxSOCKET_T descriptor, const void* buffer, std::size_t size);

/// Takes one datagram out of the socket.
void dropDatagram(wxSOCKET_T descriptor);

/// True when the toolkit can wait for a socket of that number.
bool isDescriptorUsable(wxSOCKET_T descriptor);

/// Keeps child processes from inheriting the socket, and operations on it from waiting.
void prepareSocket(wxSOCKET_T descriptor);

/// The same for datagrams; in addition, that nobody listened to one that was sent does not disturb receiving.
void prepareDatagramSocket(wxSOCKET_T descriptor);

/// The same for connections; in addition, what is written goes out at once.
void prepareStreamSocket(wxSOCKET_T descriptor);

/// The same for listening sockets; in addition, as many connections as the system allows may wait.
void prepareListeningSocket(wxSOCKET_T descriptor);

/// While it lives, operations on the toolkit's socket do not wait, whatever the toolkit told the system.
class NonWaitingSocket : private Noncopyable
{
public:
    /// The socket may have been closed already, and may be meanwhile.
    explicit NonWaitingSocket(const wxSocketBase& socket);
    ~NonWaitingSocket();

private:
    const wxSocketBase& m_socket;
    wxSOCKET_T m_changedDescriptor;
};

} // namespace Nolvex::Platform
