// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketAddress.h"

#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/net/detail/WxAddress.h"

#include <wx/socket.h>
#include <wx/utils.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

constexpr wchar_t ANY_TEXT[] = L"0.0.0.0";
constexpr wchar_t BROADCAST_TEXT[] = L"255.255.255.255";

// An empty name changes nothing; wxWidgets would raise an assertion.
void setHost(wxIPV4address& address, const String& host)
{
    if (!host.isEmpty())
        address.Hostname(toWxString(host));
}

bool isByte(StringView text)
{
    const bool isSigned = !text.isEmpty() && text[0] == L'-';
    const auto number = SimpleTextDeserializer::parse<std::int32_t>(text);
    return !isSigned && number && static_cast<std::uint32_t>(*number) <= 255;
}

} // namespace

SocketAddress::SocketAddress() : m_address(std::make_unique<wxIPV4address>()) {}

SocketAddress::SocketAddress(const String& host) : SocketAddress()
{
    setHost(*m_address, host);
}

SocketAddress::SocketAddress(const String& host, unsigned short port) : SocketAddress(host)
{
    setPort(port);
}

SocketAddress::SocketAddress(AutoPtr<wxIPV4address> address) : m_address(std::move(address)) {}

SocketAddress::~SocketAddress() = default;

SocketAddress::SocketAddress(const SocketAddress& other)
    : m_address(std::make_unique<wxIPV4address>(*other.m_address))
{}

SocketAddress::SocketAddress(SocketAddress&& other) noexcept = default;

SocketAddress& SocketAddress::operator=(const SocketAddress& other)
{
    if (m_address == nullptr)
        m_address = std::make_unique<wxIPV4address>(*other.m_address);
    else if (this != &other)
        *m_address = *other.m_address;
    return *this;
}

SocketAddress& SocketAddress::operator=(SocketAddress&& other) noexcept = default;

SocketAddress SocketAddress::anyAddress(unsigned short port)
{
    wxIPV4address address;
    address.AnyAddress();
    address.Service(port);
    return Detail::WxAddress::copied(address);
}

SocketAddress SocketAddress::broadcast()
{
    wxIPV4address address;
    address.BroadcastAddress();
    return Detail::WxAddress::copied(address);
}

SocketAddress SocketAddress::broadcast(unsigned short port)
{
    SocketAddress address = broadcast();
    address.setPort(port);
    return address;
}

SocketAddress SocketAddress::localhost()
{
    wxIPV4address address;
    address.LocalHost();
    return Detail::WxAddress::copied(address);
}

SocketAddress SocketAddress::localhost(unsigned short port)
{
    SocketAddress address = localhost();
    address.setPort(port);
    return address;
}

bool SocketAddress::isValid(StringView text)
{
    const Array<StringView> parts = text.explode(L".", ExplodeMode::KEEP_EMPTY);
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), isByte);
}

bool SocketAddress::operator==(const SocketAddress& other) const
{
    return m_address->IPAddress().IsSameAs(other.m_address->IPAddress(), true);
}

String SocketAddress::toString() const
{
    return Wx::toString(m_address->IPAddress());
}

String SocketAddress::getHostName() const
{
    return Wx::toString(m_address->Hostname());
}

unsigned short SocketAddress::getPort() const
{
    return m_address->Service();
}

void SocketAddress::setPort(unsigned short port)
{
    m_address->Service(port);
}

bool SocketAddress::isBroadcast() const
{
    return toString() == BROADCAST_TEXT;
}

bool SocketAddress::hasHost() const
{
    const String text = toString();
    if (text != BROADCAST_TEXT)
        return text != ANY_TEXT;
    // On Windows wxWidgets also turns a name that cannot be resolved into this text.
    const wxString name = m_address->OrigHostname();
    return name.empty() || Wx::toString(name) == BROADCAST_TEXT;
}

const wxIPV4address& Detail::WxAddress::of(const SocketAddress& address)
{
    return *address.m_address;
}

SocketAddress Detail::WxAddress::copied(const wxIPV4address& address)
{
    return SocketAddress(std::make_unique<wxIPV4address>(address));
}

String getLocalIpAddress()
{
    return SocketAddress(Wx::toString(wxGetFullHostName())).toString();
}

} // namespace Nolvex::Wx::Legacy
