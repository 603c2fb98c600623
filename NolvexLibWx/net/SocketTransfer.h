// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Nolvex::Wx::Detail {

/// Bytes over a connected toolkit socket, with the waiting done here and not by the toolkit: it would
/// dispatch events, wait on Linux for ever, take signals for lost connections, and nobody could wake it.
///
/// The socket's time-out bounds each wait for the peer. While this lives, the socket's flags and
/// its time-out differ from what the owner set.
class SocketTransfer : private Noncopyable
{
public:
    using Clock = std::chrono::steady_clock;

    /// For any socket.
    explicit SocketTransfer(wxSocketBase& socket);

    /// For one with wxSOCKET_BLOCK that Platform::prepareStreamSocket prepared. `isClosed` ends waits within
    /// 100 ms when another thread sets it.
    SocketTransfer(wxSocketBase& socket, const std::atomic<bool>& isClosed);
    ~SocketTransfer();

    /// Sending does not wait beyond that time.
    void setDeadline(Clock::time_point deadline) { m_deadline = deadline; }

    /// Sending waits for the peer until the deadline, not only for the socket's time-out.
    void waitForDeadline() { m_waitsForDeadline = true; }

    /// Returns how many bytes came; fewer when the peer went away or fell silent.
    std::int64_t receive(void* buffer, std::int64_t count);

    /// Returns how many bytes were sent; fewer when the peer went away or took no more.
    std::int64_t send(const void* buffer, std::int64_t count);

    /// Appends what comes before the next zero byte, and takes nothing from the socket beyond that. False
    /// when there is none within `limit` bytes, the peer went away or fell silent.
    [[nodiscard]] bool receiveText(std::string& text, std::size_t limit);

    /// True when nothing more can come or be sent.
    bool isLost() const { return m_isLost; }

private:
    bool isPrepared() const { return m_isClosed != nullptr; }

    bool isOver() const;
    Clock::time_point waitEnd(Platform::SocketReadiness readiness) const;
    bool wait(Platform::SocketReadiness readiness, Clock::time_point end) const;

    template<class MovePiece>
    std::int64_t moveAll(Platform::SocketReadiness readiness, std::int64_t count, MovePiece movePiece);

    std::int64_t waitingText(char* buffer, std::size_t size) const;
    std::int64_t receivePiece(void* buffer, std::int64_t count);
    std::int64_t sendPiece(const void* buffer, std::int64_t count);

    SocketTransfer(wxSocketBase& socket, const std::atomic<bool>* isClosed);

    wxSocketBase& m_socket;
    const std::atomic<bool>* m_isClosed; // null for sockets that were not prepared
    Optional<Platform::NonWaitingSocket> m_nonWaiting;
    wxSocketFlags m_ownersFlags;
    long m_ownersTimeout;
    Optional<Clock::time_point> m_deadline;
    bool m_waitsForDeadline = false;
    bool m_isLost = false;
};

} // namespace Nolvex::Wx::Detail
