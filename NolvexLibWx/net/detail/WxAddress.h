// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/net/SocketAddress.h"

#include <wx/socket.h>

namespace Nolvex::Wx::Legacy::Detail {

/// The way from a SocketAddress to the address of wxWidgets inside it and back, for the other socket classes.
struct WxAddress
{
    /// Lives as long as `address`, which must not have been moved from.
    static const wxIPV4address& of(const SocketAddress& address);

    static SocketAddress copied(const wxIPV4address& address);
};

} // namespace Nolvex::Wx::Legacy::Detail
