// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/RecursiveMutex.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/SocketOwner.h"
#include "NolvexLibWx/net/SocketResult.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy {

/// The most bytes of one datagram, in both directions.
inline constexpr std::size_t MAX_DATAGRAM_SIZE = 512;

/// Sends and receives single datagrams, as bytes or as an XML tree (UTF-8 text and a zero byte). Never waits,
/// so no result is Timeout.
///
/// What TcpSocket says about initialisation, event loops and descriptors holds here too. Any thread may call
/// any function.
class NOLVEXLIBWX_EXPORT UdpSocket : private Noncopyable
{
public:
    enum class ConstructFlag
    {
        /// The socket may send to the broadcast address.
        Broadcast = 1,
        /// The socket is not bound to its address, which is then only the default target.
        NoBind = 2,
    };

    /// `address` is where the socket receives, and its default target. isOpen tells whether the socket could
    /// be bound.
    explicit UdpSocket(const SocketAddress& address, Flags<ConstructFlag> flags = {});
    ~UdpSocket();

    bool isOpen() const;

    /// Final.
    void close();

    /// Returns the constructor's address, not the address that the system chose.
    SocketAddress getLocalAddress() const;

    /// Takes one waiting datagram; without one the result is an Error at once. `buffer` must be 512 bytes
    /// long, or nothing is read. `received` is the length of the datagram, and 0 on Error; bytes beyond the
    /// 512th are lost. An empty datagram is taken and gives an Error.
    [[nodiscard]] SocketResult readByteData(const ArrayView<std::byte>& buffer, SocketAddress& sender,
                                            std::uint64_t& received);

    /// Sends at most 512 bytes, to the default target if none is given. An address without a host
    /// (SocketAddress::hasHost) is an Error.
    [[nodiscard]] SocketResult writeByteData(const ArrayView<const std::byte>& data,
                                             Optional<SocketAddress> target = {}) const;

    /// Takes a datagram as readByteData does. The text ends at the first zero byte, at the latest with the
    /// 511th byte. A datagram that is no XML tree is a Success as well and leaves `out` empty.
    [[nodiscard]] SocketResult readXmlString(XmlString& out, SocketAddress& sender);

    /// Sends a tree whose text is shorter than 512 bytes, as writeByteData does.
    [[nodiscard]] SocketResult writeXmlString(const XmlString& message,
                                              Optional<SocketAddress> target = {}) const;

private:
    SocketAddress m_address;
    mutable RecursiveMutex m_mutex;
    Detail::SocketOwner m_socket; // a wxDatagramSocket
};

} // namespace Nolvex::Wx::Legacy
