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

std::int64_t SocketTransfer::receive(void* buffer, std::int64_t count)
{
    auto* const bytes = static_cast<std::byte*>(buffer);
    std::int64_t done = 0;
    while (done < count && !m_isLost && wait(Platform::SocketReadiness::READABLE))
        done += receivePiece(bytes + done, count - done);
    return done;
}

std::int64_t SocketTransfer::send(const void* buffer, std::int64_t count)
{
    const auto* const bytes = static_cast<const std::byte*>(buffer);
    // Mostly there is room, and nobody needs to ask. Of other sockets the toolkit would wait for it.
    std::int64_t done = isPrepared() && !isOver() && !m_isLost ? sendPiece(bytes, count) : 0;
    while (done < count && !m_isLost && wait(Platform::SocketReadiness::WRITABLE))
        done += sendPiece(bytes + done, count - done);
    return done;
}

bool SocketTransfer::receiveText(std::string& text, std::size_t limit)
{
    std::array<char, 16384> piece;
    std::size_t length = 0;
    while (wait(Platform::SocketReadiness::READABLE)) {
        // Looked at first and taken then, so that what follows the text stays where it is.
        const std::int64_t waiting = Platform::peekSocket(m_socket.GetSocket(), piece.data(), piece.size());
        const auto* const end =
            std::find(piece.data(), piece.data() + std::max<std::int64_t>(waiting, 0), '\0');
        const bool isComplete = end - piece.data() < waiting;
        const std::int64_t wanted = isComplete ? end - piece.data() + 1 : std::max<std::int64_t>(waiting, 1);
        const std::int64_t count = receivePiece(piece.data(), wanted);
        length += static_cast<std::size_t>(count);
        if (m_isLost || length > limit + (isComplete ? 1 : 0))
            return false;
        text.append(piece.data(), static_cast<std::size_t>(isComplete ? count - 1 : count));
        if (isComplete)
            return true;
    }
    return false;
}

bool SocketTransfer::isOver() const
{
    return m_isClosed != nullptr && m_isClosed->load();
}

bool SocketTransfer::wait(Platform::SocketReadiness readiness)
{
    using std::chrono::milliseconds;
    const bool isSending = readiness == Platform::SocketReadiness::WRITABLE;
    const bool waits = (m_ownersFlags & (isSending ? wxSOCKET_NOWAIT_WRITE : wxSOCKET_NOWAIT_READ)) == 0;
    const auto seconds = std::clamp(m_ownersTimeout, 0L, LONGEST_TIMEOUT_SECONDS);
    Clock::time_point end = Clock::now() + std::chrono::seconds(waits ? seconds : 0);
    if (isSending && m_deadline)
        end = m_waitsForDeadline ? *m_deadline : std::min(end, *m_deadline);
    while (!isOver() && !m_isLost) {
        auto left = std::max(std::chrono::ceil<milliseconds>(end - Clock::now()), milliseconds(0));
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
