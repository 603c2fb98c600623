// SPDX-License-Identifier: MIT
#include "support/RawSocket.h"

#include <winsock2.h>

#include <windows.h>

#include <array>
#include <utility>

namespace Nolvex::Tests {

namespace {

sockaddr_in loopback(unsigned short port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

void limitWaits(SOCKET handle)
{
    const DWORD limit = 10'000;
    setsockopt(handle, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&limit), sizeof limit);
    setsockopt(handle, SOL_SOCKET, SO_SNDTIMEO, reinterpret_cast<const char*>(&limit), sizeof limit);
}

std::uintptr_t open(int type)
{
    static const int started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data);
    }();
    static_cast<void>(started);
    const SOCKET handle = socket(AF_INET, type, 0);
    limitWaits(handle);
    const BOOL on = TRUE;
    if (type == SOCK_STREAM)
        setsockopt(handle, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
    return handle;
}

bool bindTo(std::uintptr_t handle, unsigned short port)
{
    const sockaddr_in address = loopback(port);
    return bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

} // namespace

RawSocket RawSocket::listening(unsigned short port, int backlog)
{
    RawSocket result(open(SOCK_STREAM));
    if (!bindTo(result.m_handle, port) || listen(result.m_handle, backlog) != 0)
        result.close();
    return result;
}

RawSocket RawSocket::connected(unsigned short port)
{
    RawSocket result(open(SOCK_STREAM));
    const sockaddr_in address = loopback(port);
    if (connect(result.m_handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
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
    int size = sizeof address;
    getsockname(m_handle, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

RawSocket RawSocket::accept()
{
    // accept() has no time limit of its own, unlike recv().
    fd_set set;
    set.fd_count = 1;
    set.fd_array[0] = m_handle;
    timeval limit = {10, 0};
    if (select(0, &set, nullptr, nullptr, &limit) != 1)
        return {};
    const SOCKET handle = ::accept(m_handle, nullptr, nullptr);
    if (handle == INVALID_SOCKET)
        return {};
    limitWaits(handle);
    return RawSocket(handle);
}

void RawSocket::shrinkReceiveBuffer()
{
    const int size = 4096;
    setsockopt(m_handle, SOL_SOCKET, SO_RCVBUF, reinterpret_cast<const char*>(&size), sizeof size);
}

bool RawSocket::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const int count = ::send(m_handle, bytes.data(), static_cast<int>(bytes.size()), 0);
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool RawSocket::sendUrgent(char byte)
{
    return ::send(m_handle, &byte, 1, MSG_OOB) == 1;
}

std::string RawSocket::receive(std::size_t count)
{
    std::string bytes(count, '\0');
    std::size_t done = 0;
    while (done < count) {
        const int piece = recv(m_handle, bytes.data() + done, static_cast<int>(count - done), 0);
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
    return sendto(m_handle, bytes.data(), static_cast<int>(bytes.size()), 0,
                  reinterpret_cast<const sockaddr*>(&address),
                  sizeof address) == static_cast<int>(bytes.size());
}

bool RawSocket::canBroadcast()
{
    const RawSocket socket(open(SOCK_DGRAM));
    const BOOL on = TRUE;
    setsockopt(socket.m_handle, SOL_SOCKET, SO_BROADCAST, reinterpret_cast<const char*>(&on), sizeof on);
    sockaddr_in address = loopback(9);
    address.sin_addr.s_addr = htonl(INADDR_BROADCAST);
    return sendto(socket.m_handle, "x", 1, 0, reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
           1;
}

std::string RawSocket::receiveDatagram(unsigned short* senderPort)
{
    std::array<char, 2048> buffer = {};
    sockaddr_in address = {};
    int size = sizeof address;
    const int count = recvfrom(m_handle, buffer.data(), static_cast<int>(buffer.size()), 0,
                               reinterpret_cast<sockaddr*>(&address), &size);
    if (senderPort != nullptr)
        *senderPort = ntohs(address.sin_port);
    return count < 0 ? "nothing received" : std::string(buffer.data(), static_cast<std::size_t>(count));
}

void RawSocket::shutdownSending()
{
    shutdown(m_handle, SD_SEND);
}

void RawSocket::close()
{
    if (m_handle != NONE)
        closesocket(std::exchange(m_handle, NONE));
}

void RawSocket::reset()
{
    const linger atOnce = {1, 0};
    setsockopt(m_handle, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
    close();
}

} // namespace Nolvex::Tests
