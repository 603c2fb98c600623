// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/Connection.h"

#include "NolvexLibWx/net/detail/ReceivedText.h"
#include "NolvexLibWx/net/detail/WxTimeout.h"

#include <algorithm>
#include <utility>

namespace Nolvex::Wx::Legacy::Detail {

namespace {

// A wait is cut into waits of this length, between which `end` of another thread is noticed.
constexpr std::chrono::milliseconds END_CHECK_PERIOD = Platform::MAX_RECEIVE_WAIT;

} // namespace

// The array stays uninitialised: most connections never use most of it.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
Connection::Connection(SocketOwner socket) : m_socket(std::move(socket)), m_descriptor(m_socket->GetSocket())
{}

bool Connection::isOpen() const
{
    return m_socket->IsOk() && !m_ended && !m_lost;
}

void Connection::setTimeout(std::int64_t seconds)
{
    m_socket->SetTimeout(wxTimeoutOf(seconds));
}

std::int64_t Connection::receive(void* buffer, std::int64_t count, Deadline deadline)
{
    auto* const bytes = static_cast<std::byte*>(buffer);
    auto done = static_cast<std::int64_t>(takeAhead(bytes, static_cast<std::size_t>(count)));
    while (done < count) {
        const std::int64_t piece =
            receiveSome(bytes + done, static_cast<std::size_t>(count - done), deadline);
        if (piece == 0)
            break;
        done += piece;
        deadline.restart();
    }
    return done;
}

bool Connection::receiveText(std::string& text, std::size_t maxSize, Deadline deadline)
{
    for (std::size_t left = maxSize;;) {
        const char* const begin = m_ahead.data() + m_aheadBegin;
        const char* const end = m_ahead.data() + m_aheadEnd;
        const char* const zero = std::find(begin, end, '\0');
        const auto length = static_cast<std::size_t>(zero - begin);
        if (length > left)
            return false;
        Wx::Detail::appendReceived(text, begin, length);
        m_aheadBegin += length + (zero == end ? 0 : 1);
        if (zero != end)
            return true;
        left -= length;
        if (length > 0)
            deadline.restart();
        if (!waitForBytes(deadline))
            return false;
    }
}

bool Connection::waitForBytes(const Deadline& deadline)
{
    if (ahead() > 0)
        return true;
    m_aheadBegin = 0;
    m_aheadEnd = static_cast<std::size_t>(receiveSome(m_ahead.data(), m_ahead.size(), deadline));
    return m_aheadEnd > 0;
}

std::int64_t Connection::send(const void* buffer, std::int64_t count, Deadline deadline)
{
    const auto* const bytes = static_cast<const std::byte*>(buffer);
    std::int64_t done = 0;
    while (done < count && !m_ended && !m_lost) {
        const std::int64_t piece =
            note(Platform::sendAtOnce(m_descriptor, bytes + done, static_cast<std::size_t>(count - done)));
        done += piece;
        if (piece > 0 && done < count)
            deadline.restart();
        else if (piece == 0 && !waitForRoom(deadline))
            break;
    }
    return done;
}

// A negative count stands for a connection that has ended.
std::int64_t Connection::note(std::int64_t count)
{
    if (count < 0)
        m_lost = true;
    return std::max<std::int64_t>(count, 0);
}

// Returns 0 only if the connection has ended or the deadline has passed.
std::int64_t Connection::receiveSome(void* buffer, std::size_t size, const Deadline& deadline)
{
    while (!m_ended && !m_lost) {
        const auto left = deadline.left();
        const std::int64_t count =
            note(Platform::receiveWithin(m_descriptor, buffer, size, std::min(left, END_CHECK_PERIOD)));
        if (count > 0 || left == left.zero())
            return count;
    }
    return 0;
}

bool Connection::waitForRoom(const Deadline& deadline) const
{
    while (!m_ended && !m_lost) {
        // A socket that is called ready but takes nothing gets no more time by that.
        const auto left = deadline.left();
        if (left == left.zero())
            return false;
        if (Platform::waitForSocket(m_descriptor, Platform::SocketReadiness::WRITABLE,
                                    std::min(left, END_CHECK_PERIOD)))
            return true;
    }
    return false;
}

std::size_t Connection::takeAhead(void* buffer, std::size_t count)
{
    const std::size_t taken = std::min(count, ahead());
    std::copy_n(m_ahead.data() + m_aheadBegin, taken, static_cast<char*>(buffer));
    m_aheadBegin += taken;
    return taken;
}

} // namespace Nolvex::Wx::Legacy::Detail
