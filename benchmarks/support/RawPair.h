// SPDX-License-Identifier: MIT
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace Nolvex::Benchmarks {

/// The bytes of one call of the system, as many as the library's pieces have.
inline constexpr std::size_t PIECE = 65536;

inline void check(bool isDone)
{
    if (!isDone)
        throw std::runtime_error("A transfer between the benchmark's own ends failed.");
}

/// Two sockets of the system, connected over the loopback address.
class RawPair
{
public:
    RawPair()
    {
        const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(address);
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        check(::bind(listener, generic, size) == 0 && ::listen(listener, 1) == 0 &&
              ::getsockname(listener, generic, &size) == 0);
        m_first = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        check(::connect(m_first, generic, size) == 0);
        m_second = ::accept(listener, nullptr, nullptr);
        ::close(listener);
        constexpr int ON = 1;
        for (const int end : {m_first, m_second})
            ::setsockopt(end, IPPROTO_TCP, TCP_NODELAY, &ON, sizeof(ON));
    }

    ~RawPair()
    {
        ::close(m_first);
        ::close(m_second);
    }

    RawPair(const RawPair&) = delete;
    RawPair& operator=(const RawPair&) = delete;

    int first() const { return m_first; }

    int second() const { return m_second; }

private:
    int m_first = -1;
    int m_second = -1;
};

inline void sendAll(int socket, const char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t count = ::send(socket, data, std::min(size, PIECE), MSG_NOSIGNAL);
        check(count > 0);
        data += count;
        size -= static_cast<std::size_t>(count);
    }
}

inline void receiveAll(int socket, char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t count = ::recv(socket, data, std::min(size, PIECE), 0);
        check(count > 0);
        data += count;
        size -= static_cast<std::size_t>(count);
    }
}

} // namespace Nolvex::Benchmarks
