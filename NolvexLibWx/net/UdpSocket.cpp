// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/UdpSocket.h"

#include "NolvexLibWx/net/detail/WxAddress.h"
#include "NolvexLibWx/platform/SocketDescriptor.h"

#include <wx/socket.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <mutex>
#include <string>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

// The most that a datagram of IPv4 can carry, by the width of its length.
constexpr std::size_t MAX_IP_DATAGRAM_SIZE = 65535;

// A socket with wxSOCKET_BLOCK has no event loop looking after it, which would know nothing of the threads
// that use the socket. A time-out of 0 keeps operations from waiting, as wxSOCKET_NOWAIT would.
wxSocketFlags toolkitFlags(Flags<UdpSocket::ConstructFlag> flags)
{
    wxSocketFlags result = wxSOCKET_BLOCK;
    if (flags.has(UdpSocket::ConstructFlag::Broadcast))
        result |= wxSOCKET_BROADCAST;
    if (flags.has(UdpSocket::ConstructFlag::NoBind))
        result |= wxSOCKET_NOBIND;
    return result;
}

Detail::SocketOwner datagramSocket(const SocketAddress& address, Flags<UdpSocket::ConstructFlag> flags)
{
    Detail::SocketOwner socket(new wxDatagramSocket(Detail::WxAddress::of(address), toolkitFlags(flags)));
    if (!socket->IsOk() || !Platform::isDescriptorUsable(socket->GetSocket()))
        return {};
    socket->SetTimeout(0);
    Platform::prepareDatagramSocket(socket->GetSocket());
    return socket;
}

wxDatagramSocket& datagramsOf(const Detail::SocketOwner& socket)
{
    return static_cast<wxDatagramSocket&>(*socket);
}

// Takes an empty datagram out of the socket. wxWidgets must never read one: it would take the datagram for
// the end of a connection.
bool takeEmptyDatagram(wxSOCKET_T descriptor)
{
    std::byte first{};
    const bool isWaiting = Platform::waitForSocket(descriptor, Platform::SocketReadiness::READABLE,
                                                   std::chrono::milliseconds(0));
    if (!isWaiting || Platform::peekSocket(descriptor, &first, 1) != 0)
        return false;
    Platform::dropDatagram(descriptor);
    return true;
}

} // namespace

UdpSocket::UdpSocket(const SocketAddress& address, Flags<ConstructFlag> flags)
    : m_address(address), m_socket(datagramSocket(address, flags))
{}

UdpSocket::~UdpSocket() = default;

bool UdpSocket::isOpen() const
{
    const std::lock_guard lock(m_mutex);
    return m_socket != nullptr && m_socket->IsOk() && !m_socket->IsClosed();
}

void UdpSocket::close()
{
    const std::lock_guard lock(m_mutex);
    m_socket.reset();
}

SocketAddress UdpSocket::getLocalAddress() const
{
    return m_address;
}

SocketResult UdpSocket::readByteData(const ArrayView<std::byte>& buffer, SocketAddress& sender,
                                     std::uint64_t& received)
{
    received = 0;
    const std::lock_guard lock(m_mutex);
    if (!isOpen() || buffer.size() != MAX_DATAGRAM_SIZE || takeEmptyDatagram(m_socket->GetSocket()))
        return SocketResult::Error;
    wxIPV4address address;
    address.AnyAddress();
    // The datagram is read whole and cut here, because Windows reports one that does not fit as an error.
    std::array<std::byte, MAX_IP_DATAGRAM_SIZE> whole;
    datagramsOf(m_socket).RecvFrom(address, whole.data(), MAX_IP_DATAGRAM_SIZE);
    const std::size_t count = std::min<std::size_t>(m_socket->LastReadCount(), MAX_DATAGRAM_SIZE);
    if (count == 0)
        return SocketResult::Error;
    std::copy_n(whole.begin(), count, buffer.begin());
    received = count;
    sender = Detail::WxAddress::copied(address);
    return SocketResult::Success;
}

SocketResult UdpSocket::writeByteData(const ArrayView<const std::byte>& data,
                                      Optional<SocketAddress> target) const
{
    const std::lock_guard lock(m_mutex);
    const SocketAddress& address = target ? *target : m_address;
    if (!isOpen() || data.size() > MAX_DATAGRAM_SIZE || !address.hasHost())
        return SocketResult::Error;
    // Not by wxWidgets, which sends no datagram without a byte.
    const wxIPV4address& wxAddress = Detail::WxAddress::of(address);
    const bool isSent = Platform::sendDatagram(m_socket->GetSocket(), *wxAddress.GetAddressData(),
                                               static_cast<std::size_t>(wxAddress.GetAddressDataLen()), data);
    return isSent ? SocketResult::Success : SocketResult::Error;
}

SocketResult UdpSocket::readXmlString(XmlString& out, SocketAddress& sender)
{
    const std::lock_guard lock(m_mutex);
    std::array<std::byte, MAX_DATAGRAM_SIZE> buffer;
    std::uint64_t received = 0;
    if (readByteData(buffer, sender, received) != SocketResult::Success)
        return SocketResult::Error;
    const auto* const text = reinterpret_cast<const char*>(buffer.data());
    const char* const last = text + std::min<std::uint64_t>(received, MAX_DATAGRAM_SIZE - 1);
    const std::string bytes(text, std::find(text, last, '\0'));
    auto tree = XmlString::fromString(String::fromUtf8(bytes));
    // The datagram was received, whatever it holds.
    out = tree ? std::move(*tree) : XmlString();
    return SocketResult::Success;
}

SocketResult UdpSocket::writeXmlString(const XmlString& message, Optional<SocketAddress> target) const
{
    const std::lock_guard lock(m_mutex);
    const std::string text = message.toUtf8();
    if (!isOpen() || text.size() >= MAX_DATAGRAM_SIZE)
        return SocketResult::Error;
    const auto* const bytes = reinterpret_cast<const std::byte*>(text.c_str());
    return writeByteData({bytes, text.size() + 1}, std::move(target));
}

} // namespace Nolvex::Wx::Legacy
