// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace Nolvex::Tests {

/// An IPv4 socket of the system on the loopback address, which does not use wxWidgets. Waits of more than ten
/// seconds fail. Threads must not share an object.
class RawSocket
{
public:
    RawSocket() = default;

    RawSocket(RawSocket&& other) noexcept : m_handle(std::exchange(other.m_handle, NONE)) {}

    RawSocket& operator=(RawSocket&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }

    ~RawSocket() { close(); }

    /// Listens on the port, or on any free port if the port is 0. The system keeps up to `backlog`
    /// connections waiting.
    static RawSocket listening(unsigned short port = 0, int backlog = 1000);
    static RawSocket connected(unsigned short port);
    static RawSocket datagram();

    explicit operator bool() const { return m_handle != NONE; }

    unsigned short port() const;

    /// Returns the next connection, or a closed socket if no peer connects in time.
    RawSocket accept();

    /// Shrinks the buffer, so that the sender soon has to wait for this peer. Call it before connecting or
    /// listening.
    void shrinkReceiveBuffer();

    /// Returns whether all bytes were sent.
    bool send(std::string_view bytes);

    /// Sends a single byte that overtakes all others (TCP's urgent data).
    bool sendUrgent(char byte);

    /// Returns exactly `count` bytes, or fewer if the connection ends before.
    std::string receive(std::size_t count);

    /// Returns the bytes up to and including the next zero byte.
    std::string receiveText()
    {
        std::string text;
        for (std::string byte = receive(1); !byte.empty(); byte = receive(1)) {
            text += byte;
            if (byte[0] == '\0')
                break;
        }
        return text;
    }

    /// Returns all bytes up to the connection's end.
    std::string receiveAll()
    {
        std::string bytes;
        for (std::string piece = receive(65536); !piece.empty(); piece = receive(65536))
            bytes += piece;
        return bytes;
    }

    bool sendTo(unsigned short port, std::string_view bytes);

    /// Returns whether the system can send datagrams to the whole local network, which requires that there is
    /// one.
    static bool canBroadcast();

    /// Returns the next datagram, and stores the port of its sender.
    std::string receiveDatagram(unsigned short* senderPort = nullptr);

    void shutdownSending();
    void close();

    /// Ends the connection abruptly: the peer gets an error instead of the connection's end.
    void reset();

private:
    static constexpr std::uintptr_t NONE = ~std::uintptr_t(0);

    explicit RawSocket(std::uintptr_t handle) : m_handle(handle) {}

    std::uintptr_t m_handle = NONE;
};

} // namespace Nolvex::Tests
