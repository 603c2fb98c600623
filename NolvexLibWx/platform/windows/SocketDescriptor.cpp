// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <winsock2.h>

#include <windows.h>

#include <mswsock.h>

#include <algorithm>
#include <limits>

namespace Nolvex {

namespace {

fd_set setOf(SOCKET socket)
{
    fd_set set;
    set.fd_count = 1;
    set.fd_array[0] = socket;
    return set;
}

int lengthOf(std::size_t size)
{
    return static_cast<int>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

// Detects a broken connection, because Wine neither reports it as writable nor wakes a waiting writer.
bool hasFailed(SOCKET socket)
{
    char byte = 0;
    if (recv(socket, &byte, 1, MSG_PEEK) != SOCKET_ERROR)
        return false;
    const int error = WSAGetLastError();
    return error == WSAECONNRESET || error == WSAECONNABORTED || error == WSAENETRESET;
}

// wxWidgets has made the socket non-blocking already.
void keepFromChildren(SOCKET socket)
{
    SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
}

timeval timevalOf(std::chrono::milliseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    const auto rest = std::chrono::microseconds(time - seconds);
    const auto most = static_cast<std::chrono::seconds::rep>(std::numeric_limits<long>::max());
    return {static_cast<long>(std::min(seconds.count(), most)), static_cast<long>(rest.count())};
}

} // namespace

bool Platform::waitForSocket(wxSOCKET_T descriptor, SocketReadiness readiness, std::chrono::milliseconds time)
{
    // The exception set is not used, because urgent data that is never read would make the socket ready for
    // ever.
    fd_set wanted = setOf(descriptor);
    const bool reads = readiness == SocketReadiness::READABLE;
    timeval limit = timevalOf(time);
    if (select(0, reads ? &wanted : nullptr, reads ? nullptr : &wanted, nullptr, &limit) != 0)
        return true;
    return !reads && hasFailed(descriptor);
}

std::int64_t Platform::peekSocket(wxSOCKET_T descriptor, void* buffer, std::size_t size)
{
    const int length = lengthOf(size);
    const int count = recv(descriptor, static_cast<char*>(buffer), length, MSG_PEEK);
    // Windows reports an error if a datagram is longer than the buffer, but copies the part that fits.
    return count == SOCKET_ERROR && WSAGetLastError() == WSAEMSGSIZE ? length : count;
}

std::int64_t Platform::receiveWithin(wxSOCKET_T descriptor, void* buffer, std::size_t size,
                                     std::chrono::milliseconds time)
{
    const auto receive = [&] { return recv(descriptor, static_cast<char*>(buffer), lengthOf(size), 0); };
    const auto isEmpty = [](int count) {
        return count == SOCKET_ERROR && WSAGetLastError() == WSAEWOULDBLOCK;
    };
    int count = receive();
    if (isEmpty(count)) {
        if (!waitForSocket(descriptor, SocketReadiness::READABLE, time))
            return 0;
        count = receive();
        if (isEmpty(count))
            return 0;
    }
    // Without an error, 0 means that the peer sends no more.
    return count <= 0 ? -1 : count;
}

std::int64_t Platform::sendAtOnce(wxSOCKET_T descriptor, const void* buffer, std::size_t size)
{
    const int count = send(descriptor, static_cast<const char*>(buffer), lengthOf(size), 0);
    return count == SOCKET_ERROR && WSAGetLastError() == WSAEWOULDBLOCK ? 0 : count;
}

bool Platform::sendDatagram(wxSOCKET_T descriptor, const sockaddr& address, std::size_t addressSize,
                            ArrayView<const std::byte> data)
{
    // Windows refuses a null pointer even if the length is 0.
    const char none = 0;
    const char* const bytes = data.empty() ? &none : reinterpret_cast<const char*>(data.data());
    const int length = lengthOf(data.size());
    return sendto(descriptor, bytes, length, 0, &address, lengthOf(addressSize)) == length;
}

void Platform::dropDatagram(wxSOCKET_T descriptor)
{
    char byte = 0;
    recv(descriptor, &byte, 1, 0);
}

bool Platform::isDescriptorUsable(wxSOCKET_T descriptor)
{
    return descriptor != INVALID_SOCKET;
}

void Platform::prepareDatagramSocket(wxSOCKET_T descriptor)
{
    keepFromChildren(descriptor);
    BOOL reports = FALSE;
    DWORD count = 0;
    WSAIoctl(descriptor, SIO_UDP_CONNRESET, &reports, sizeof reports, nullptr, 0, &count, nullptr, nullptr);
}

void Platform::prepareStreamSocket(wxSOCKET_T descriptor)
{
    keepFromChildren(descriptor);
    const BOOL on = TRUE;
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
}

void Platform::prepareListeningSocket(wxSOCKET_T descriptor)
{
    keepFromChildren(descriptor);
    listen(descriptor, SOMAXCONN);
}

Platform::NonWaitingSocket::NonWaitingSocket(const wxSocketBase& socket)
    : m_socket(socket), m_changedDescriptor(INVALID_SOCKET)
{
    // On Windows the sockets of wxWidgets never block.
}

Platform::NonWaitingSocket::~NonWaitingSocket() = default;

} // namespace Nolvex
