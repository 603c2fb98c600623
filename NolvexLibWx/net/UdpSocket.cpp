// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/UdpSocket.h"

#include "NolvexLibWx/net/ToolkitAddress.h"
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

// The most that a datagram can carry, by the width of its length.
constexpr std::size_t LARGEST_DATAGRAM = 65535;

// With wxSOCKET_BLOCK no event loop looks after the socket, whose other users may be on threads that it knows
// nothing of. That nothing waits, which wxSOCKET_NOWAIT would say, is seen to here: the time-out is 0.
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
    Detail::SocketOwner socket(
        new wxDatagramSocket(Detail::ToolkitAddress::of(address), toolkitFlags(flags)));
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

bool canReadAtOnce(wxSOCKET_T descriptor)
{
    return Platform::waitForSocket(descriptor, Platform::SocketReadiness::READABLE,
                                   std::chrono::milliseconds(0));
}

// The toolkit takes an empty datagram for the end of a connection, so it never sees one.
bool isDatagramWaiting(wxSOCKET_T descriptor)
{
    // A flood of them does not hold the caller for ever.
    constexpr int MOST_DROPPED = 64;
    for (int dropped = 0; dropped < MOST_DROPPED && canReadAtOnce(descriptor); ++dropped) {
        std::byte first{};
        if (Platform::peekSocket(descriptor, &first, 1) != 0)
            return true;
        Platform::dropDatagram(descriptor);
    }
    return false;
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
    if (!isOpen() || buffer.size() != DATAGRAM_SIZE_LIMIT || !isDatagramWaiting(m_socket->GetSocket()))
        return SocketResult::Error;
    wxIPV4address address;
    address.AnyAddress();
    // Taken whole and cut here: some systems call a datagram that does not fit an error.
    std::array<std::byte, LARGEST_DATAGRAM> whole;
    datagramsOf(m_socket).RecvFrom(address, whole.data(), LARGEST_DATAGRAM);
    const std::size_t count = std::min<std::size_t>(m_socket->LastReadCount(), DATAGRAM_SIZE_LIMIT);
    if (count == 0)
        return SocketResult::Error;
    std::copy_n(whole.begin(), count, buffer.begin());
    received = count;
    sender = Detail::ToolkitAddress::copied(address);
    return SocketResult::Success;
}

SocketResult UdpSocket::writeByteData(const ArrayView<const std::byte>& data,
                                      Optional<SocketAddress> target) const
{
    const std::lock_guard lock(m_mutex);
    if (!isOpen() || data.size() > DATAGRAM_SIZE_LIMIT)
        return SocketResult::Error;
    // The toolkit sends no empty datagram either.
    if (data.empty())
        return SocketResult::Success;
    const wxIPV4address& address = Detail::ToolkitAddress::of(target ? *target : m_address);
    // An address that nobody set anything of is none to the toolkit before it is asked for its text: it would
    // send to the last sender instead.
    address.IPAddress();
    datagramsOf(m_socket).SendTo(address, data.data(), static_cast<wxUint32>(data.size()));
    return m_socket->LastWriteCount() == data.size() ? SocketResult::Success : SocketResult::Error;
}

SocketResult UdpSocket::readXmlString(XmlString& out, SocketAddress& sender)
{
    const std::lock_guard lock(m_mutex);
    std::array<std::byte, DATAGRAM_SIZE_LIMIT> buffer;
    std::uint64_t received = 0;
    if (readByteData(buffer, sender, received) != SocketResult::Success)
        return SocketResult::Error;
    const auto* const text = reinterpret_cast<const char*>(buffer.data());
    const char* const last = text + std::min<std::uint64_t>(received, DATAGRAM_SIZE_LIMIT - 1);
    const std::string bytes(text, std::find(text, last, '\0'));
    auto tree = XmlString::fromString(String::fromUtf8(bytes));
    if (!tree)
        return SocketResult::Error;
    out = std::move(*tree);
    return SocketResult::Success;
}

SocketResult UdpSocket::writeXmlString(const XmlString& message, Optional<SocketAddress> target) const
{
    const std::lock_guard lock(m_mutex);
    const std::string text = message.toUtf8();
    if (!isOpen() || text.size() >= DATAGRAM_SIZE_LIMIT)
        return SocketResult::Error;
    const auto* const bytes = reinterpret_cast<const std::byte*>(text.c_str());
    return writeByteData({bytes, text.size() + 1}, std::move(target));
}

} // namespace Nolvex::Wx::Legacy
