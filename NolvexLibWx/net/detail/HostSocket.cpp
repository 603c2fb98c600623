// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/HostSocket.h"

#include "NolvexLibWx/net/detail/ReceivedText.h"

#include <algorithm>
#include <array>
#include <limits>

namespace Nolvex::Wx::Detail {

namespace {

using Platform::SocketReadiness;

// wxWidgets counts the bytes of one call in 32 bits.
constexpr std::int64_t MAX_CALL_SIZE = std::numeric_limits<std::int32_t>::max();

} // namespace

HostSocket::HostSocket(wxSocketBase& socket)
    : m_socket(socket),
      m_hostsFlags(socket.GetFlags()),
      m_hostsTimeout(socket.GetTimeout()),
      m_lost(!Platform::isDescriptorUsable(socket.GetSocket()))
{
    // Each call then moves what can be moved at once.
    m_socket.SetFlags(m_hostsFlags & ~(wxSOCKET_WAITALL | wxSOCKET_NOWAIT));
    m_socket.SetTimeout(0);
}

HostSocket::~HostSocket()
{
    m_socket.SetFlags(m_hostsFlags);
    m_socket.SetTimeout(m_hostsTimeout);
}

template<class TransferPiece>
std::int64_t HostSocket::transfer(std::int64_t count, SocketReadiness readiness, Deadline end,
                                  const TransferPiece& transferPiece)
{
    const Platform::NonWaitingSocket nonWaiting(m_socket);
    std::int64_t done = 0;
    while (done < count && wait(readiness, end)) {
        const std::int64_t piece = transferPiece(done);
        done += piece;
        if (piece > 0)
            end.restart();
        else if (end.hasPassed())
            break;
    }
    return done;
}

std::int64_t HostSocket::receive(void* buffer, std::int64_t count)
{
    auto* const bytes = static_cast<std::byte*>(buffer);
    return transfer(count, SocketReadiness::READABLE, deadline(wxSOCKET_NOWAIT_READ),
                    [&](std::int64_t done) { return receivePiece(bytes + done, count - done); });
}

std::int64_t HostSocket::send(const void* buffer, std::int64_t count)
{
    const auto* const bytes = static_cast<const std::byte*>(buffer);
    return transfer(count, SocketReadiness::WRITABLE, deadline(wxSOCKET_NOWAIT_WRITE),
                    [&](std::int64_t done) { return sendPiece(bytes + done, count - done); });
}

bool HostSocket::receiveText(std::string& text, std::size_t maxSize)
{
    std::array<char, 4096> piece;
    std::size_t left = maxSize;
    Deadline end = deadline(wxSOCKET_NOWAIT_READ);
    for (;;) {
        const std::int64_t count = receiveTextPiece(piece.data(), piece.size(), end);
        if (m_lost || (count == 0 && end.hasPassed()))
            return false;
        if (count == 0)
            continue;
        const bool isComplete = piece[static_cast<std::size_t>(count - 1)] == '\0';
        const auto length = static_cast<std::size_t>(isComplete ? count - 1 : count);
        if (length > left)
            return false;
        appendReceived(text, piece.data(), length);
        if (isComplete)
            return true;
        left -= length;
        end.restart();
    }
}

// Looks at the waiting bytes before it takes them, so that the bytes behind the text stay in the socket.
std::int64_t HostSocket::receiveTextPiece(char* buffer, std::size_t size, const Deadline& deadline)
{
    const std::int64_t waiting = waitingText(buffer, size);
    if (waiting > 0)
        return receivePiece(buffer, waiting);
    if (!wait(SocketReadiness::READABLE, deadline))
        return 0;
    // Asking for a single byte takes nothing behind the text. If no byte comes, wxWidgets learns from the
    // call that the connection has ended.
    const Platform::NonWaitingSocket nonWaiting(m_socket);
    return receivePiece(buffer, std::max<std::int64_t>(waitingText(buffer, size), 1));
}

// Returns how many of the waiting bytes belong to the text: those up to the first zero byte, or all of them.
std::int64_t HostSocket::waitingText(char* buffer, std::size_t size) const
{
    const std::int64_t waiting = Platform::peekSocket(m_socket.GetSocket(), buffer, size);
    const char* const end = buffer + std::max<std::int64_t>(waiting, 0);
    const char* const zero = std::find(static_cast<const char*>(buffer), end, '\0');
    return zero == end ? waiting : zero - buffer + 1;
}

Deadline HostSocket::deadline(wxSocketFlags flagAgainstWaiting) const
{
    const bool waits = (m_hostsFlags & flagAgainstWaiting) == 0;
    return Deadline::afterSilence(std::chrono::seconds(waits ? std::max(m_hostsTimeout, 0L) : 0));
}

bool HostSocket::wait(SocketReadiness readiness, const Deadline& deadline) const
{
    return !m_lost && Platform::waitForSocket(m_socket.GetSocket(), readiness, deadline.left());
}

std::int64_t HostSocket::receivePiece(void* buffer, std::int64_t count)
{
    m_socket.Read(buffer, static_cast<wxUint32>(std::min(count, MAX_CALL_SIZE)));
    const std::int64_t done = m_socket.LastReadCount();
    // A socket that is ready but gives nothing has reached the end of its connection.
    m_lost = done == 0 && (m_socket.IsClosed() || m_socket.LastError() == wxSOCKET_IOERR);
    return done;
}

std::int64_t HostSocket::sendPiece(const void* buffer, std::int64_t count)
{
    m_socket.Write(buffer, static_cast<wxUint32>(std::min(count, MAX_CALL_SIZE)));
    const std::int64_t done = m_socket.LastWriteCount();
    m_lost = done == 0 && m_socket.LastError() == wxSOCKET_IOERR;
    return done;
}

} // namespace Nolvex::Wx::Detail
