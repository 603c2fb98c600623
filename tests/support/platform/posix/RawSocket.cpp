// SPDX-License-Identifier: MIT
#include "support/RawSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace Nolvex::Tests {

namespace {

int fd(std::uintptr_t handle)
{
    return static_cast<int>(handle);
}

sockaddr_in loopback(unsigned short port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

std::uintptr_t open(int type)
{
    const int descriptor = socket(AF_INET, type | SOCK_CLOEXEC, 0);
    const timeval limit = {10, 0};
    setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    const int on = 1;
    if (type == SOCK_STREAM)
        setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return static_cast<std::uintptr_t>(descriptor);
}

bool bindTo(std::uintptr_t handle, unsigned short port)
{
    const sockaddr_in address = loopback(port);
    return bind(fd(handle), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

} // namespace

RawSocket RawSocket::listening(unsigned short port, int backlog)
{
    RawSocket result(open(SOCK_STREAM));
    if (!bindTo(result.m_handle, port) || listen(fd(result.m_handle), backlog) != 0)
        result.close();
    return result;
}

RawSocket RawSocket::connected(unsigned short port)
{
    RawSocket result(open(SOCK_STREAM));
    const sockaddr_in address = loopback(port);
    if (connect(fd(result.m_handle), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        result.close();
    return result;
}

RawSocket RawSocket::datagram()
{
    RawSocket result(open(SOCK_DGRAM));
    bindTo(result.m_handle, 0);
    return result;
}

unsigned short RawSocket::port() const
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    getsockname(fd(m_handle), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

RawSocket RawSocket::accept()
{
    const int descriptor = ::accept4(fd(m_handle), nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0)
        return {};
    const timeval limit = {10, 0};
    setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    return RawSocket(static_cast<std::uintptr_t>(descriptor));
}

void RawSocket::shrinkReceiveBuffer()
{
    const int size = 4096;
    setsockopt(fd(m_handle), SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
}

bool RawSocket::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(fd(m_handle), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool RawSocket::sendUrgent(char byte)
{
    return ::send(fd(m_handle), &byte, 1, MSG_NOSIGNAL | MSG_OOB) == 1;
}

std::string RawSocket::receive(std::size_t count)
{
    std::string bytes(count, '\0');
    std::size_t done = 0;
    while (done < count) {
        const ssize_t piece = recv(fd(m_handle), bytes.data() + done, count - done, 0);
        if (piece <= 0)
            break;
        done += static_cast<std::size_t>(piece);
    }
    bytes.resize(done);
    return bytes;
}

bool RawSocket::sendTo(unsigned short port, std::string_view bytes)
{
    const sockaddr_in address = loopback(port);
    return sendto(fd(m_handle), bytes.data(), bytes.size(), 0, reinterpret_cast<const sockaddr*>(&address),
                  sizeof address) == static_cast<ssize_t>(bytes.size());
}

bool RawSocket::canBroadcast()
{
    const RawSocket socket(open(SOCK_DGRAM));
    const int on = 1;
    setsockopt(fd(socket.m_handle), SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
    sockaddr_in address = loopback(9);
    address.sin_addr.s_addr = htonl(INADDR_BROADCAST);
    return sendto(fd(socket.m_handle), "x", 1, 0, reinterpret_cast<const sockaddr*>(&address),
                  sizeof address) == 1;
}

std::string RawSocket::receiveDatagram(unsigned short* senderPort)
{
    std::array<char, 2048> buffer = {};
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    const ssize_t count =
        recvfrom(fd(m_handle), buffer.data(), buffer.size(), 0, reinterpret_cast<sockaddr*>(&address), &size);
    if (senderPort != nullptr)
        *senderPort = ntohs(address.sin_port);
    return count < 0 ? "nothing received" : std::string(buffer.data(), static_cast<std::size_t>(count));
}

void RawSocket::shutdownSending()
{
    shutdown(fd(m_handle), SHUT_WR);
}

void RawSocket::close()
{
    if (m_handle != NONE)
        ::close(fd(std::exchange(m_handle, NONE)));
}

void RawSocket::reset()
{
    const linger atOnce = {1, 0};
    setsockopt(fd(m_handle), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    close();
}

} // namespace Nolvex::Tests
