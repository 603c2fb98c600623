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

struct WxAddress;

} // namespace Detail

/// An IPv4 address with a port, which is 0 when none was given.
///
/// The constructor resolves names, which may take a while, and does not tell of failure: `hasHost` does. The
/// text of a name that cannot be resolved is "0.0.0.0" on Linux and "255.255.255.255" on Windows, as
/// wxWidgets has it. An address that was moved from may only be destroyed or assigned to.
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

    /// Every interface of this computer, for listening and binding. It is no host to connect or send to.
    static SocketAddress anyAddress(unsigned short port);

    /// Every computer of the local network, for datagrams.
    static SocketAddress broadcast();
    static SocketAddress broadcast(unsigned short port);

    static SocketAddress localhost();
    static SocketAddress localhost(unsigned short port);

    /// True for four decimal numbers of 0 to 255 that are joined by dots, with nothing around them. A number
    /// with leading zeros is decimal here, but octal to the system's resolver.
    static bool isValid(StringView text);

    /// True for the same host; ports are not compared.
    bool operator==(const SocketAddress& other) const;

    /// The dotted address without the port: "127.0.0.1".
    String toString() const;

    /// The name that the system's resolver finds for the address, which may take a while. Empty if there is
    /// none.
    String getHostName() const;

    unsigned short getPort() const;
    void setPort(unsigned short port);

    bool isBroadcast() const;

    /// True if something can be connected or sent to the address. False for the any-address, and if the host
    /// was empty or could not be resolved: nothing ever goes to such an address.
    bool hasHost() const;

private:
    friend struct Detail::WxAddress;

    explicit SocketAddress(AutoPtr<wxIPV4address> address);

    AutoPtr<wxIPV4address> m_address; // null when moved from
};

/// The dotted address that this computer's full name resolves to. Its network interfaces are not asked, so
/// the answer may be 127.0.1.1, or the text of a name that cannot be resolved.
NOLVEXLIBWX_EXPORT String getLocalIpAddress();

} // namespace Nolvex::Wx::Legacy
