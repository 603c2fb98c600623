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
inline constexpr std::size_t DATAGRAM_SIZE_LIMIT = 512;

/// Sends and receives single datagrams, as bytes or as an XML tree (UTF-8 text and a zero byte). Never waits,
/// so no result is ever Timeout.
///
/// What TcpSocket says about initialisation, event loops and descriptors holds here too. Any thread may call
/// any function.
class NOLVEXLIBWX_EXPORT UdpSocket : private Noncopyable
{
public:
    enum class ConstructFlag
    {
        /// It may send to the broadcast address.
        Broadcast = 1,
        /// It is not bound to its address, which then only says where it sends to.
        NoBind = 2,
    };

    /// `address` is where it receives, and where it sends to unless a target is given. isOpen tells whether
    /// it could be bound.
    explicit UdpSocket(const SocketAddress& address, Flags<ConstructFlag> flags = {});
    ~UdpSocket();

    bool isOpen() const;

    /// Final.
    void close();

    /// The constructor's address, not the one that the system chose.
    SocketAddress getLocalAddress() const;

    /// Takes a datagram that waits; with none it is an Error at once. `buffer` must be 512 bytes long, or
    /// nothing is read. `received` is the length of the datagram, and 0 on Error; what it holds beyond 512
    /// bytes is lost. Empty datagrams are dropped, of very many only some at a time: with nothing but those
    /// it is an Error too.
    [[nodiscard]] SocketResult readByteData(const ArrayView<std::byte>& buffer, SocketAddress& sender,
                                            std::uint64_t& received);

    /// At most 512 bytes.
    [[nodiscard]] SocketResult writeByteData(const ArrayView<const std::byte>& data,
                                             Optional<SocketAddress> target = {}) const;

    /// As readByteData; the text ends at the first zero byte, at the latest with the 511th byte. What is no
    /// XML tree is an Error as well, and is gone; only `sender` tells whom it came from.
    [[nodiscard]] SocketResult readXmlString(XmlString& out, SocketAddress& sender);

    /// The text must be shorter than 512 bytes.
    [[nodiscard]] SocketResult writeXmlString(const XmlString& message,
                                              Optional<SocketAddress> target = {}) const;

private:
    SocketAddress m_address;
    mutable RecursiveMutex m_mutex;
    Detail::SocketOwner m_socket; // a wxDatagramSocket
};

} // namespace Nolvex::Wx::Legacy
