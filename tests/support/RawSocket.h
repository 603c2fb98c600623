// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace Nolvex::Tests {

/// The system's own IPv4 sockets on the loopback address, without any toolkit. Waits of more than ten seconds
/// fail. Not for threads to share.
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

    /// A free port is taken for 0; with `backlog`, that many connections may wait.
    static RawSocket listening(unsigned short port = 0, int backlog = 1000);
    static RawSocket connected(unsigned short port);
    static RawSocket datagram();

    explicit operator bool() const { return m_handle != NONE; }

    unsigned short port() const;

    /// Not open when none came.
    RawSocket accept();

    /// The small buffers of a peer that falls behind soon. Before connecting or listening only.
    void shrinkReceiveBuffer();

    /// False unless all was sent.
    bool send(std::string_view bytes);

    /// A single byte past all others (TCP's urgent data).
    bool sendUrgent(char byte);

    /// Exactly that many bytes, fewer at the connection's end.
    std::string receive(std::size_t count);

    /// Up to the zero byte, which is included.
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

    /// Everything up to the connection's end.
    std::string receiveAll()
    {
        std::string bytes;
        for (std::string piece = receive(65536); !piece.empty(); piece = receive(65536))
            bytes += piece;
        return bytes;
    }

    bool sendTo(unsigned short port, std::string_view bytes);

    /// True when the system sends datagrams to all of the local network, that is when there is one.
    static bool canBroadcast();

    /// A datagram, and whom it came from.
    std::string receiveDatagram(unsigned short* senderPort = nullptr);

    void shutdownSending();
    void close();

    /// Ends the connection the rude way.
    void reset();

private:
    static constexpr std::uintptr_t NONE = ~std::uintptr_t(0);

    explicit RawSocket(std::uintptr_t handle) : m_handle(handle) {}

    std::uintptr_t m_handle = NONE;
};

} // namespace Nolvex::Tests
