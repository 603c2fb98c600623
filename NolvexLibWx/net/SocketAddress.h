// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/String.h"
#include "NolvexLib/StringView.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_NET wxIPV4address;

namespace Nolvex::Wx::Legacy {

namespace Detail {

struct ToolkitAddress;

} // namespace Detail

/// An IPv4 address with a port, 0 when none was given.
///
/// Names are resolved by the constructor, which may take a while and does not tell of failure: what cannot be
/// resolved becomes what the toolkit makes of it ("0.0.0.0" on Linux, "255.255.255.255" on Windows). Check
/// dotted addresses by isValid before. An address that was moved from may only be destroyed or assigned to.
class NOLVEXLIBWX_EXPORT SocketAddress
{
public:
    SocketAddress();

    /// `host` is a name or a dotted address, never with a port behind a colon.
    explicit SocketAddress(const String& host);
    SocketAddress(const String& host, unsigned short port);

    ~SocketAddress();
    SocketAddress(const SocketAddress& other);
    SocketAddress(SocketAddress&& other) noexcept;
    SocketAddress& operator=(const SocketAddress& other);
    SocketAddress& operator=(SocketAddress&& other) noexcept;

    /// Every interface of this computer, for listening and binding.
    static SocketAddress anyAddress(unsigned short port);

    /// Every computer of the local network, for datagrams.
    static SocketAddress broadcast();
    static SocketAddress broadcast(unsigned short port);

    static SocketAddress localhost();
    static SocketAddress localhost(unsigned short port);

    /// True for four decimal numbers of 0 to 255 joined by dots, and nothing around them. Leading zeros are
    /// taken here for what they are in decimal, but the system's resolver takes such a number for octal.
    static bool isValid(StringView text);

    /// The same host; ports are not compared.
    bool operator==(const SocketAddress& other) const;

    /// The dotted address without the port: "127.0.0.1".
    String toString() const;

    /// The name that the system's resolver has for the address, which may take a while; empty for none.
    String getHostName() const;

    unsigned short getPort() const;
    void setPort(unsigned short port);

    bool isBroadcast() const;

private:
    friend struct Detail::ToolkitAddress;

    explicit SocketAddress(AutoPtr<wxIPV4address> address);

    AutoPtr<wxIPV4address> m_address; // null when moved from
};

/// The dotted address that this computer's full name resolves to. No interfaces are looked at: the answer may
/// be 127.0.1.1, or what the toolkit makes of a name that cannot be resolved.
NOLVEXLIBWX_EXPORT String getLocalIpAddress();

} // namespace Nolvex::Wx::Legacy
