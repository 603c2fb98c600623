// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/net/detail/Deadline.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace Nolvex::Wx::Detail {

/// A connected wxSocketBase that belongs to the host program, for the length of one transfer.
///
/// The bytes go through wxWidgets, whose counts, error and events the host may look at. The waits are done
/// here: wxWidgets would dispatch events, and on Linux wait for ever. Each wait ends when the peer has been
/// silent for the socket's own time-out, or at once where the socket's flags say so. Flags and time-out
/// differ from what the host set until the destructor restores them.
class HostSocket : private Noncopyable
{
public:
    explicit HostSocket(wxSocketBase& socket);
    ~HostSocket();

    /// Returns how many bytes came; fewer than `count` if the peer went away or was silent for too long.
    std::int64_t receive(void* buffer, std::int64_t count);

    /// Returns how many bytes were sent; fewer than `count` if the peer went away or took no more in time.
    std::int64_t send(const void* buffer, std::int64_t count);

    /// Appends what comes before the next zero byte, and takes nothing from the socket beyond that byte.
    /// Returns false if no zero byte is among the next `maxSize` + 1 bytes, if the peer went away, or if the
    /// peer was silent for too long.
    [[nodiscard]] bool receiveText(std::string& text, std::size_t maxSize);

private:
    /// Waits and calls `transferPiece(done)`, which returns how many bytes it has moved, until all bytes are
    /// moved, the peer goes away, or the deadline passes after the last piece. Returns how many were moved.
    template<class TransferPiece>
    std::int64_t transfer(std::int64_t count, Platform::SocketReadiness readiness, Deadline end,
                          const TransferPiece& transferPiece);

    Deadline deadline(wxSocketFlags flagAgainstWaiting) const;
    bool wait(Platform::SocketReadiness readiness, const Deadline& deadline) const;
    std::int64_t receiveTextPiece(char* buffer, std::size_t size, const Deadline& deadline);
    std::int64_t waitingText(char* buffer, std::size_t size) const;
    std::int64_t receivePiece(void* buffer, std::int64_t count);
    std::int64_t sendPiece(const void* buffer, std::int64_t count);

    wxSocketBase& m_socket;
    wxSocketFlags m_hostsFlags;
    long m_hostsTimeout;
    bool m_lost;
};

} // namespace Nolvex::Wx::Detail
