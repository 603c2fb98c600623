// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/net/TimeLimit.h"

#include <wx/socket.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Nolvex::Wx::Detail {

class SocketTransfer;

} // namespace Nolvex::Wx::Detail

namespace Nolvex::Wx::Legacy::Detail {

/// The most seconds that the toolkit can count on every system.
inline constexpr std::int64_t LONGEST_TOOLKIT_TIMEOUT = 2'000'000;

/// What bounds a wait for the peer to take more.
enum class Patience
{
    /// The socket's time-out, and the caller's time limit where that is shorter.
    SOCKET_TIMEOUT,
    /// The caller's time limit; without one, the socket's time-out.
    TIME_LIMIT,
};

/// A TcpSocket's connection while one of its functions holds the lock.
class LockedSocket : private Noncopyable
{
public:
    /// The socket may be null. `isLost` is set when the connection turns out to have ended.
    LockedSocket(wxSocketBase* socket, const std::atomic<bool>& isClosed, std::atomic<bool>& isLost);

    bool isOpen() const;

    // Only while it is open:

    /// In seconds; cut to what the toolkit can count.
    void setTimeout(std::int64_t seconds);

    /// As SocketTransfer::receive.
    std::int64_t receive(void* buffer, std::int64_t count);

    /// As SocketTransfer::receiveText.
    [[nodiscard]] bool receiveText(std::string& text, std::size_t limit);

    /// As SocketTransfer::send.
    std::int64_t send(const void* buffer, std::int64_t count, const TimeLimit& limit, Patience patience);

private:
    void note(const Wx::Detail::SocketTransfer& transfer);

    wxSocketBase* m_socket;
    const std::atomic<bool>& m_isClosed;
    std::atomic<bool>& m_isLost;
};

} // namespace Nolvex::Wx::Legacy::Detail
