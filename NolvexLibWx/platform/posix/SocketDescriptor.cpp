// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/select.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>

namespace Nolvex {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int NONE = -1;

// Long enough for any wait, short enough for poll.
constexpr std::chrono::milliseconds MAX_POLL_TIME = std::chrono::hours(24);

int pollTime(Clock::time_point end)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    return static_cast<int>(std::clamp(left, std::chrono::milliseconds(0), MAX_POLL_TIME).count());
}

template<class Value>
void setOption(int descriptor, int level, int option, const Value& value)
{
    setsockopt(descriptor, level, option, &value, sizeof value);
}

void keepFromChildren(int descriptor)
{
    fcntl(descriptor, F_SETFD, fcntl(descriptor, F_GETFD) | FD_CLOEXEC);
}

void keepFromWaiting(int descriptor)
{
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

} // namespace

bool Platform::waitForSocket(int descriptor, SocketReadiness readiness, std::chrono::milliseconds time)
{
    const Clock::time_point end = Clock::now() + time;
    const short events = readiness == SocketReadiness::READABLE ? POLLIN : POLLOUT;
    for (;;) {
        pollfd entry = {descriptor, events, 0};
        const int count = poll(&entry, 1, pollTime(end));
        if (count > 0)
            return true;
        const bool wasInterrupted = count < 0 && errno == EINTR;
        if (!wasInterrupted && (count < 0 || Clock::now() >= end))
            return false;
    }
}

std::int64_t Platform::peekSocket(int descriptor, void* buffer, std::size_t size)
{
    return recv(descriptor, buffer, size, MSG_PEEK | MSG_DONTWAIT);
}

std::int64_t Platform::receiveWithin(int descriptor, void* buffer, std::size_t size,
                                     std::chrono::milliseconds time)
{
    // The socket's own time-out is MAX_RECEIVE_WAIT, which saves a call of poll for each message.
    const bool waitsForLess = time < MAX_RECEIVE_WAIT;
    if (waitsForLess && time.count() > 0)
        waitForSocket(descriptor, SocketReadiness::READABLE, time);
    const ssize_t count = recv(descriptor, buffer, size, waitsForLess ? MSG_DONTWAIT : 0);
    if (count < 0)
        return errno == EAGAIN || errno == EINTR ? 0 : -1;
    // 0 means that the peer sends no more.
    return count == 0 ? -1 : count;
}

std::int64_t Platform::sendAtOnce(int descriptor, const void* buffer, std::size_t size)
{
    ssize_t count = 0;
    do
        count = ::send(descriptor, buffer, size, MSG_NOSIGNAL | MSG_DONTWAIT);
    while (count < 0 && errno == EINTR);
    const bool isFull = count < 0 && errno == EAGAIN;
    return isFull ? 0 : count;
}

bool Platform::sendDatagram(int descriptor, const sockaddr& address, std::size_t addressSize,
                            ArrayView<const std::byte> data)
{
    ssize_t count = 0;
    do
        count = sendto(descriptor, data.data(), data.size(), MSG_NOSIGNAL | MSG_DONTWAIT, &address,
                       static_cast<socklen_t>(addressSize));
    while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(data.size());
}

void Platform::dropDatagram(int descriptor)
{
    char byte = 0;
    // The content is ignored. NOLINTNEXTLINE(bugprone-unused-return-value)
    static_cast<void>(recv(descriptor, &byte, 1, MSG_DONTWAIT));
}

bool Platform::isDescriptorUsable(int descriptor)
{
    return descriptor >= 0 && descriptor < FD_SETSIZE;
}

void Platform::prepareDatagramSocket(int descriptor)
{
    keepFromChildren(descriptor);
    keepFromWaiting(descriptor);
}

void Platform::prepareStreamSocket(int descriptor)
{
    keepFromChildren(descriptor);
    setOption(descriptor, IPPROTO_TCP, TCP_NODELAY, 1);
    const timeval time = {0, std::chrono::microseconds(MAX_RECEIVE_WAIT).count()};
    setOption(descriptor, SOL_SOCKET, SO_RCVTIMEO, time);
}

void Platform::prepareListeningSocket(int descriptor)
{
    keepFromChildren(descriptor);
    keepFromWaiting(descriptor);
    listen(descriptor, SOMAXCONN);
}

Platform::NonWaitingSocket::NonWaitingSocket(const wxSocketBase& socket)
    : m_socket(socket), m_changedDescriptor(NONE)
{
    const int descriptor = socket.GetSocket();
    const int flags = fcntl(descriptor, F_GETFL);
    if (flags < 0 || (flags & O_NONBLOCK) != 0)
        return;
    fcntl(descriptor, F_SETFL, flags | O_NONBLOCK);
    m_changedDescriptor = descriptor;
}

Platform::NonWaitingSocket::~NonWaitingSocket()
{
    // wxWidgets closes the descriptor when the connection ends, and another file may have its number by now.
    if (m_changedDescriptor != NONE && m_socket.GetSocket() == m_changedDescriptor)
        fcntl(m_changedDescriptor, F_SETFL, fcntl(m_changedDescriptor, F_GETFL) & ~O_NONBLOCK);
}

} // namespace Nolvex
