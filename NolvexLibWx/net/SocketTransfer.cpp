// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketTransfer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace Nolvex::Wx::Detail {

namespace {

// How long a wait lasts at most before it looks whether the socket was closed on another thread.
constexpr std::chrono::milliseconds CLOSE_CHECK_PERIOD(50);

// A year; beyond that, the sum with the time of day would not fit.
constexpr long LONGEST_TIMEOUT_SECONDS = 31'536'000;

// What one call of the toolkit is given at most.
constexpr std::int64_t MOST_AT_ONCE = std::numeric_limits<std::int32_t>::max();

} // namespace

SocketTransfer::SocketTransfer(wxSocketBase& socket) : SocketTransfer(socket, nullptr)
{
    m_nonWaiting.emplace(socket);
}

SocketTransfer::SocketTransfer(wxSocketBase& socket, const std::atomic<bool>& isClosed)
    : SocketTransfer(socket, &isClosed)
{}

SocketTransfer::SocketTransfer(wxSocketBase& socket, const std::atomic<bool>* isClosed)
    : m_socket(socket),
      m_isClosed(isClosed),
      m_ownersFlags(socket.GetFlags()),
      m_ownersTimeout(socket.GetTimeout()),
      m_isLost(!Platform::isDescriptorUsable(socket.GetSocket()))
{
    // Each call then moves what can be moved at once.
    m_socket.SetFlags(m_ownersFlags & ~(wxSOCKET_WAITALL | wxSOCKET_NOWAIT));
    m_socket.SetTimeout(0);
}

SocketTransfer::~SocketTransfer()
{
    m_socket.SetFlags(m_ownersFlags);
    m_socket.SetTimeout(m_ownersTimeout);
}

// Moves piece by piece, with the time-out beginning anew after each of them. A socket that is ready but moves
// nothing gets no more time by that.
template<class MovePiece>
std::int64_t SocketTransfer::moveAll(Platform::SocketReadiness readiness, std::int64_t count,
                                     MovePiece movePiece)
{
    std::int64_t done = 0;
    Clock::time_point end = waitEnd(readiness);
    while (done < count && !m_isLost && wait(readiness, end)) {
        const std::int64_t piece = movePiece(done);
        done += piece;
        if (piece > 0)
            end = waitEnd(readiness);
        else if (Clock::now() >= end)
            break;
    }
    return done;
}

std::int64_t SocketTransfer::receive(void* buffer, std::int64_t count)
{
    auto* const bytes = static_cast<std::byte*>(buffer);
    return moveAll(Platform::SocketReadiness::READABLE, count,
                   [&](std::int64_t done) { return receivePiece(bytes + done, count - done); });
}

std::int64_t SocketTransfer::send(const void* buffer, std::int64_t count)
{
    const auto* const bytes = static_cast<const std::byte*>(buffer);
    // Mostly there is room, and nobody needs to ask. Of other sockets the toolkit would wait for it.
    const std::int64_t first = isPrepared() && !isOver() && !m_isLost ? sendPiece(bytes, count) : 0;
    return first + moveAll(Platform::SocketReadiness::WRITABLE, count - first, [&](std::int64_t done) {
               return sendPiece(bytes + first + done, count - first - done);
           });
}

bool SocketTransfer::receiveText(std::string& text, std::size_t limit)
{
    std::array<char, 16384> piece;
    std::size_t left = limit;
    Clock::time_point end = waitEnd(Platform::SocketReadiness::READABLE);
    while (wait(Platform::SocketReadiness::READABLE, end)) {
        // Looked at first and taken then, so that what follows the text stays where it is.
        const std::int64_t count = receivePiece(piece.data(), waitingText(piece.data(), piece.size()));
        if (m_isLost || (count == 0 && Clock::now() >= end))
            return false;
        if (count == 0)
            continue;
        const bool isComplete = piece[static_cast<std::size_t>(count - 1)] == '\0';
        const auto length = static_cast<std::size_t>(isComplete ? count - 1 : count);
        if (length > left)
            return false;
        text.append(piece.data(), length);
        if (isComplete)
            return true;
        left -= length;
        end = waitEnd(Platform::SocketReadiness::READABLE);
    }
    return false;
}

// How many bytes may be taken without taking what is behind a zero byte: up to the first one that waits, or
// all that wait. A single byte never does harm.
std::int64_t SocketTransfer::waitingText(char* buffer, std::size_t size) const
{
    const std::int64_t waiting = Platform::peekSocket(m_socket.GetSocket(), buffer, size);
    const char* const last = buffer + std::max<std::int64_t>(waiting, 0);
    const char* const zero = std::find(static_cast<const char*>(buffer), last, '\0');
    return zero == last ? std::max<std::int64_t>(waiting, 1) : zero - buffer + 1;
}

bool SocketTransfer::isOver() const
{
    return m_isClosed != nullptr && m_isClosed->load();
}

SocketTransfer::Clock::time_point SocketTransfer::waitEnd(Platform::SocketReadiness readiness) const
{
    const bool isSending = readiness == Platform::SocketReadiness::WRITABLE;
    const bool waits = (m_ownersFlags & (isSending ? wxSOCKET_NOWAIT_WRITE : wxSOCKET_NOWAIT_READ)) == 0;
    const auto seconds = std::clamp(m_ownersTimeout, 0L, LONGEST_TIMEOUT_SECONDS);
    const Clock::time_point end = Clock::now() + std::chrono::seconds(waits ? seconds : 0);
    if (!isSending || !m_deadline)
        return end;
    return m_waitsForDeadline ? *m_deadline : std::min(end, *m_deadline);
}

bool SocketTransfer::wait(Platform::SocketReadiness readiness, Clock::time_point end) const
{
    using std::chrono::milliseconds;
    while (!isOver() && !m_isLost) {
        const auto left = std::max(std::chrono::ceil<milliseconds>(end - Clock::now()), milliseconds(0));
        const bool isLast = m_isClosed == nullptr || left <= CLOSE_CHECK_PERIOD;
        if (Platform::waitForSocket(m_socket.GetSocket(), readiness, isLast ? left : CLOSE_CHECK_PERIOD))
            return true;
        if (isLast)
            return false;
    }
    return false;
}

std::int64_t SocketTransfer::receivePiece(void* buffer, std::int64_t count)
{
    m_socket.Read(buffer, static_cast<wxUint32>(std::min(count, MOST_AT_ONCE)));
    const std::int64_t done = m_socket.LastReadCount();
    // Ready with nothing to read is how the end of the connection shows.
    m_isLost = done == 0 && (m_socket.IsClosed() || m_socket.LastError() == wxSOCKET_IOERR);
    return done;
}

std::int64_t SocketTransfer::sendPiece(const void* buffer, std::int64_t count)
{
    if (isPrepared()) {
        const std::int64_t done =
            Platform::sendAtOnce(m_socket.GetSocket(), buffer, static_cast<std::size_t>(count));
        m_isLost = done < 0;
        return std::max<std::int64_t>(done, 0);
    }
    m_socket.Write(buffer, static_cast<wxUint32>(std::min(count, MOST_AT_ONCE)));
    const std::int64_t done = m_socket.LastWriteCount();
    m_isLost = done == 0 && m_socket.LastError() == wxSOCKET_IOERR;
    return done;
}

} // namespace Nolvex::Wx::Detail
