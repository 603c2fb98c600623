// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/net/SocketAddress.h"

#include <wx/socket.h>

namespace Nolvex::Wx::Legacy::Detail {

/// The way from a SocketAddress to the toolkit's address and back, for the other socket classes.
struct ToolkitAddress
{
    /// Lives as long as `address`, which was not moved from.
    static const wxIPV4address& of(const SocketAddress& address);

    static SocketAddress copied(const wxIPV4address& address);
};

} // namespace Nolvex::Wx::Legacy::Detail
