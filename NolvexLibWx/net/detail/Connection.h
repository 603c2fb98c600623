// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/net/SocketOwner.h"
#include "NolvexLibWx/net/detail/Deadline.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Nolvex::Wx::Legacy::Detail {

using Wx::Detail::Deadline;

/// The connection of a TcpSocket. All of its bytes go through this class, which asks the system directly:
/// wxWidgets would dispatch events while it waits, take signals for lost connections, and on Linux could not
/// be woken.
///
/// What arrives is read ahead, so that a header costs one call of the system. `isOpen` and `end` may be
/// called on any thread; all other functions take turns under the lock of the TcpSocket.
class Connection : private Noncopyable
{
public:
    /// The socket is connected and was prepared by Platform::prepareStreamSocket.
    explicit Connection(SocketOwner socket);

    bool isOpen() const;

    /// A transfer on another thread gives up within 100 ms.
    void end() { m_ended = true; }

    wxSocketBase& socket() { return *m_socket; }

    /// Remembers the time-out that a step of the protocol leaves behind, in seconds. Only a later connect of
    /// the same object reads this value.
    void setTimeout(std::int64_t seconds);

    /// Returns how many bytes came; fewer than `count` if the peer went away or was silent for too long.
    std::int64_t receive(void* buffer, std::int64_t count, Deadline deadline);

    /// Reads ahead. Returns false if no byte came before the deadline or the end of the connection.
    [[nodiscard]] bool waitForBytes(const Deadline& deadline);

    /// Appends what comes before the next zero byte. Returns false if no zero byte is among the next
    /// `maxSize` + 1 bytes, if the peer went away, or if the deadline passed.
    [[nodiscard]] bool receiveText(std::string& text, std::size_t maxSize, Deadline deadline);

    /// Returns how many bytes were sent; fewer than `count` if the peer went away or took no more in time.
    std::int64_t send(const void* buffer, std::int64_t count, Deadline deadline);

private:
    std::int64_t receiveSome(void* buffer, std::size_t size, const Deadline& deadline);
    bool waitForRoom(const Deadline& deadline) const;
    std::int64_t note(std::int64_t count);
    std::size_t takeAhead(void* buffer, std::size_t count);

    std::size_t ahead() const { return m_aheadEnd - m_aheadBegin; }

    SocketOwner m_socket;
    wxSOCKET_T m_descriptor;
    std::atomic<bool> m_ended = false;
    // The peer has gone, which wxWidgets does not know.
    std::atomic<bool> m_lost = false;
    // The bytes that were read ahead lie between the two indices.
    std::array<char, 16384> m_ahead;
    std::size_t m_aheadBegin = 0;
    std::size_t m_aheadEnd = 0;
};

} // namespace Nolvex::Wx::Legacy::Detail
