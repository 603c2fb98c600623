// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Noncopyable.h"

#include <wx/socket.h>

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Platform {

// System calls on the sockets of wxWidgets. All functions take descriptors of open sockets.

enum class SocketReadiness
{
    READABLE,
    WRITABLE,
};

/// Waits until the socket is ready for reading (or accepting) or writing, or its connection has ended.
/// Returns false if the time is over before that; a time of 0 only checks. Signals do not end the wait.
bool waitForSocket(wxSOCKET_T descriptor, SocketReadiness readiness, std::chrono::milliseconds time);

/// Copies the waiting bytes, at most `size`, and leaves them in the socket. Returns how many were copied; 0
/// if the connection has ended or an empty datagram waits, -1 on failure and if nothing waits.
std::int64_t peekSocket(wxSOCKET_T descriptor, void* buffer, std::size_t size);

/// The longest wait of receiveWithin.
inline constexpr std::chrono::milliseconds MAX_RECEIVE_WAIT(50);

/// Takes the waiting bytes, at most `size`, or the first that come within that time. Returns how many were
/// taken; 0 if none came or a signal ended the wait, -1 if the connection has ended. For sockets that
/// prepareStreamSocket prepared.
std::int64_t receiveWithin(wxSOCKET_T descriptor, void* buffer, std::size_t size,
                           std::chrono::milliseconds time);

/// Sends what the system takes at once. Returns how many bytes that was; 0 if the system takes none now, -1
/// if the connection has ended. For sockets that prepareStreamSocket prepared.
std::int64_t sendAtOnce(wxSOCKET_T descriptor, const void* buffer, std::size_t size);

/// Sends one datagram, which may be empty. Returns false if the system does not take the whole of it at once.
bool sendDatagram(wxSOCKET_T descriptor, const sockaddr& address, std::size_t addressSize,
                  ArrayView<const std::byte> data);

/// Takes one datagram out of the socket.
void dropDatagram(wxSOCKET_T descriptor);

/// Returns true if wxWidgets can wait for a socket with that number.
bool isDescriptorUsable(wxSOCKET_T descriptor);

// Each of these three functions also keeps child processes from inheriting the socket.

/// Prepares a socket for datagrams: operations do not wait, and a datagram that nothing listened to does not
/// disturb receiving.
void prepareDatagramSocket(wxSOCKET_T descriptor);

/// Prepares a connected socket for receiveWithin and sendAtOnce. The system sends written data without delay.
void prepareStreamSocket(wxSOCKET_T descriptor);

/// Prepares a listening socket: operations do not wait, and as many connections as the system allows may.
void prepareListeningSocket(wxSOCKET_T descriptor);

/// While an object of this class lives, operations on the socket do not wait, whatever wxWidgets told the
/// system.
class NonWaitingSocket : private Noncopyable
{
public:
    /// The socket may have been closed already, and may be closed meanwhile.
    explicit NonWaitingSocket(const wxSocketBase& socket);
    ~NonWaitingSocket();

private:
    const wxSocketBase& m_socket;
    wxSOCKET_T m_changedDescriptor;
};

} // namespace Nolvex::Platform
